#include "patients/NumeroSecu.h"

QString CleNumeroSecu(const QString &numero) {
    constexpr int longueur = 13;
    constexpr int modulo = 97;
    qint64 nombre = 0;
    for (const QChar c : QStringView(numero).left(longueur)) {
        if (c == u' ' || c == u'\t') {
            continue;
        }
        if (c < u'0' || c > u'9') {
            break;
        }
        nombre = nombre * 10 + c.digitValue();
    }
    return QStringLiteral("%1").arg(modulo - nombre % modulo, 2, 10, QLatin1Char('0'));
}

bool NumeroSecuValide(const QString &numero) {
    const QString propre = numero.trimmed();
    const bool nonTeste = propre.isEmpty() || propre.front() == u'7' || propre.front() == u'8';
    return nonTeste || propre.right(2) == CleNumeroSecu(propre);
}
