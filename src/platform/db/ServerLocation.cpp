#include "platform/db/ServerLocation.h"

#include <QUrl>
#include <algorithm>

namespace {

/// Between "//" and "/" or "?": who, and where.
QString authority(const QString &url) {
    const qsizetype from = url.indexOf(QStringLiteral("//")) + 2;
    qsizetype end = from;
    while (end < url.size() && url[end] != u'/' && url[end] != u'?') {
        ++end;
    }
    return url.sliced(from, end - from);
}

QString decoded(const QString &text) {
    return QUrl::fromPercentEncoding(text.toUtf8());
}

} // namespace

bool ServerLocation::isOne(const QString &location) {
    return location.startsWith(QStringLiteral("postgresql://"), Qt::CaseInsensitive) ||
           location.startsWith(QStringLiteral("postgres://"), Qt::CaseInsensitive);
}

ServerLocation ServerLocation::of(const QString &location) {
    const qsizetype end = location.indexOf(u'\\'); // no part of a URL
    QString url = location.left(end);
    const QString scheme = url.section(u':', 0, 0);
    const QString file = end < 0 ? QString() : location.section(u'\\', -1);
    return {scheme.toLower() + url.sliced(scheme.size()), file.section(u'.', 0, 0).toLower()};
}

QString ServerLocation::parameter(const QString &name) const {
    const QStringList parameters = url.section(u'?', 1).split(u'&', Qt::SkipEmptyParts);
    for (const QString &each : parameters) {
        if (each.section(u'=', 0, 0) == name) {
            return decoded(each.section(u'=', 1));
        }
    }
    return {};
}

QString ServerLocation::host() const {
    for (const QString &given : {parameter(QStringLiteral("host")), parameter(QStringLiteral("hostaddr"))}) {
        if (!given.isEmpty()) {
            return given;
        }
    }
    QString before = authority(url).section(u'@', -1);
    if (before.startsWith(u'[')) {
        before = before.section(u']', 0, 0).sliced(1);
    } else {
        before = before.section(u':', 0, 0);
    }
    const bool isUnsaid = before.isEmpty() && parameter(QStringLiteral("service")).isEmpty();
    return isUnsaid ? qEnvironmentVariable("PGHOST") : decoded(before);
}

QString ServerLocation::database() const {
    const QString given = parameter(QStringLiteral("dbname"));
    const QString before = url.section(u'?', 0, 0);
    const qsizetype start = before.indexOf(u'/', before.indexOf(QStringLiteral("//")) + 2);
    return given.isEmpty() && start > 0 ? decoded(before.sliced(start + 1)) : given;
}

bool ServerLocation::isOnThisMachine() const {
    const QString name = host();
    const bool isSocket = name.startsWith(u'/') || name.startsWith(u'@');
    return name.isEmpty() ? parameter(QStringLiteral("service")).isEmpty()
                          : isSocket || name.compare(QStringLiteral("localhost"), Qt::CaseInsensitive) == 0 ||
                                name == u"127.0.0.1" || name == u"::1";
}

bool ServerLocation::holdsPassword() const {
    const QString all = authority(url);
    return (all.contains(u'@') && all.section(u'@', 0, -2).contains(u':')) ||
           !parameter(QStringLiteral("password")).isEmpty();
}

QString ServerLocation::serverName() const {
    const QString name = host();
    const QString service = parameter(QStringLiteral("service"));
    if (!service.isEmpty()) {
        return QStringLiteral("le serveur du service « %1 »").arg(service);
    }
    return name.isEmpty() || name.startsWith(u'/') ? QStringLiteral("le serveur de ce poste")
                                                   : QStringLiteral("le serveur « %1 »").arg(name);
}

QString ServerLocation::label() const {
    const QStringList names{database(), parameter(QStringLiteral("service")), host()};
    const auto named = std::ranges::find_if(names, [](const QString &name) { return !name.isEmpty(); });
    return named == names.end() ? QStringLiteral("serveur") : QStringLiteral("serveur ") + *named;
}

QString ServerLocation::databaseName() const {
    const QString name = database();
    const QString server = QStringLiteral("du ") + serverName().sliced(3);
    return name.isEmpty() ? QStringLiteral("la base %1").arg(server)
                          : QStringLiteral("la base « %1 » %2").arg(name, server);
}
