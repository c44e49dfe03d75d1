#include "platform/db/SqlText.h"

QString DoubleApostrophe(const QString &text) {
    QString doubled = text;
    return doubled.replace(QStringLiteral("'"), QStringLiteral("''"));
}

SqlValue texte(const QString &value) {
    QString clean = value;
    clean.remove(QChar(0)); // an engine ends its text there and would read the rest as SQL never sent
    return SqlValue(QStringLiteral("'") + DoubleApostrophe(clean) + QStringLiteral("'"));
}

SqlValue nombre(qint64 value) {
    return SqlValue(QString::number(value));
}

SqlValue dateSql(QDate value) {
    return SqlValue(value.toString(QStringLiteral("'#'MM dd yyyy'#'")));
}

SqlValue heureSql(QTime value) {
    return SqlValue(value.toString(QStringLiteral("'#'HH:mm:ss'#'")));
}
