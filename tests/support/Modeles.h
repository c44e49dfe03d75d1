#pragma once

#include <QDir>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

/// A document of the office as text: what `body` holds, in the words of OpenDocument.
inline QByteArray flatDocument(const QString &body) {
    QByteArray names;
    for (const char *name : {"office", "text", "table"}) {
        names += QByteArray(" xmlns:") + name + "=\"urn:oasis:names:tc:opendocument:xmlns:" + name + ":1.0\"";
    }
    return R"(<?xml version="1.0" encoding="UTF-8"?><office:document office:version="1.2")" + names +
           R"( xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:xlink="http://www.w3.org/1999/xlink")"
           R"( office:mimetype="application/vnd.oasis.opendocument.text"><office:body><office:text>)" +
           body.toUtf8() + "</office:text></office:body></office:document>";
}

/// A table whose first cell has a bookmark.
inline QString flatTable(const QString &bookmark, int columns, int rows) {
    QString cells = QStringLiteral("<text:bookmark text:name=\"%1\"/>").arg(bookmark);
    QString table = QStringLiteral("<table:table><table:table-column table:number-columns-repeated=\"%1\"/>")
                        .arg(columns);
    for (int row = 0; row < rows; ++row) {
        table += QStringLiteral("<table:table-row>");
        for (int column = 0; column < columns; ++column) {
            table += QStringLiteral("<table:table-cell><text:p>%1</text:p></table:table-cell>")
                         .arg(std::exchange(cells, QStringLiteral("-")));
        }
        table += QStringLiteral("</table:table-row>");
    }
    return table + QStringLiteral("</table:table>");
}

/// Makes "name.EXTENSION" of each in `folder`, by one run of the office. False when it does not.
inline bool makeTemplates(const QDir &folder, const QMap<QString, QString> &bodies,
                          const QString &filter = QStringLiteral("doc:MS Word 97")) {
    const QTemporaryDir profile;
    QStringList arguments{QStringLiteral("-env:UserInstallation=file://") + profile.path(),
                          QStringLiteral("--headless"),
                          QStringLiteral("--convert-to"),
                          filter,
                          QStringLiteral("--outdir"),
                          folder.path()};
    for (auto body = bodies.begin(); body != bodies.end(); ++body) {
        QFile file(profile.filePath(body.key() + QStringLiteral(".fodt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(flatDocument(body.value())) <= 0) {
            return false;
        }
        arguments << file.fileName();
    }
    QProcess office;
    office.start(QStringLiteral("soffice"), arguments);
    constexpr int patience = 60'000;
    return office.waitForFinished(patience) && office.exitCode() == 0;
}
