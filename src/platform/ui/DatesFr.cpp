#include "platform/ui/DatesFr.h"

#include <QLocale>

namespace {

QString spelled(QDate date, QStringView format) {
    static const QLocale french(QLocale::French, QLocale::France);
    return french.toString(date, format);
}

} // namespace

namespace DatesFr {

QString courte(QDate date) {
    return spelled(date, u"dd/MM/yyyy");
}

QString jourSemaine(QDate date) {
    return spelled(date, u"dddd");
}

QString enteteJour(QDate date) {
    return spelled(date, u"dddd dd MMM");
}

QString periode(QDate premier, QDate dernier) {
    if (premier == dernier) {
        return spelled(premier, u"dddd d MMMM yyyy");
    }
    if (premier.month() == dernier.month()) {
        return QString::number(premier.day()) + QChar(0x2013) + spelled(dernier, u"d MMMM yyyy");
    }
    const bool memeAnnee = premier.year() == dernier.year();
    return spelled(premier, memeAnnee ? QStringView(u"d MMMM") : QStringView(u"d MMMM yyyy")) +
           QStringLiteral(" – ") + spelled(dernier, u"d MMMM yyyy");
}

QString enteteJourLong(QDate date) {
    return spelled(date, u"dddd dd MMMM");
}

QString breve(QDate date) {
    return spelled(date, u"ddd d MMM yyyy");
}

QString jourCourt(QDate date) {
    return spelled(date, u"ddd d");
}

QString jourComplet(QDate date) {
    return spelled(date, u"dddd dd MMM yyyy");
}

QString jourImprime(QDate date) {
    return spelled(date, u"dddd dd MMMM yyyy");
}

QString etat(QDate date) {
    return spelled(date, u"dd MMM yyyy");
}

QString heure(QTime time) {
    if (!time.isValid()) {
        return {};
    }
    const int minutes = time.hour() * 60 + time.minute();
    const auto digit = [](int value) { return QChar(u'0' + char16_t(value)); };
    const QChar text[] = {digit(minutes / 600), digit(minutes / 60 % 10), u':', digit(minutes % 60 / 10),
                          digit(minutes % 10)};
    return QString(text, 5);
}

} // namespace DatesFr
