// What SqliteEngine tells of a file whose rows nobody asks for.
#include "platform/db/DbError.h"
#include "platform/db/SqliteEngine.h"

#include <QFileInfo>
#include <QtEndian>
#include <array>
#include <sqlite3.h>

std::optional<quint32> SqliteEngine::changesOf(const QString &file) {
    constexpr int place = 24; // in the header
    std::array<uchar, sizeof(quint32)> count{};
    if (!QFileInfo(file).isFile()) { // opening a pipe would wait without end
        return std::nullopt;
    }
    try {
        SqliteEngine engine(file, SQLITE_OPEN_READONLY, std::chrono::milliseconds(0));
        sqlite3_file *open = engine.mainFile();
        const int code = open->pMethods->xRead(open, count.data(), int(count.size()), place);
        return code == SQLITE_OK ? std::optional(qFromBigEndian<quint32>(count.data())) : std::nullopt;
    } catch (const DbError &) {
        return std::nullopt;
    }
}
