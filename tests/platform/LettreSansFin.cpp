// A book that is in the midst of a document for as long as it runs: lettre_sans_fin TEMPLATE DOCUMENT
#include "platform/word/OfficeProcess.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList files = QCoreApplication::arguments();
    constexpr int many = 20'000;
    const QList<std::optional<QString>> cells(many, QStringLiteral("x"));
    OfficeProcess([] { return false; })
        .perform({word::Open{files.value(1)}, word::Reserve{{files.value(2)}},
                  word::Select{QStringLiteral("DebTableau")}, word::Cells{cells}});
}
