#include "platform/word/OfficeTool.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

namespace {

constexpr std::chrono::milliseconds patience{3000};

} // namespace

QString OfficeTool::file() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/tavelin-word");
}

QProcessEnvironment OfficeTool::environment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QString locale;
    for (const auto &name : {QStringLiteral("LC_ALL"), QStringLiteral("LC_CTYPE"), QStringLiteral("LANG")}) {
        locale = locale.isEmpty() ? environment.value(name) : locale;
    }
    if (!locale.remove(u'-').endsWith(QStringLiteral("utf8"), Qt::CaseInsensitive)) {
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    }
    return environment;
}

OfficeTool::OfficeTool() {
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/tavelin-word-"));
    folder.setAutoRemove(false);
    m_folder.path = QDir(folder.path()).canonicalPath();
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setProcessEnvironment(environment());
    process.start(file(), {m_folder.path});
}

OfficeTool::~OfficeTool() {
    process.disconnect();
    process.closeWriteChannel();
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(patience.count())) {
        process.kill();
        process.waitForFinished(patience.count());
    }
    m_folder.remove(); // of one that was killed
}

void OfficeTool::end() {
    process.disconnect();
    process.closeWriteChannel();
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &process, &QProcess::kill);
    while (process.state() != QProcess::NotRunning) {
        loop.exec();
    }
}

void OfficeTool::letGo(std::unique_ptr<OfficeTool> tool) {
    OfficeTool *leaving = tool.release();
    leaving->setParent(qApp);
    leaving->process.disconnect();
    connect(&leaving->process, &QProcess::finished, leaving, &QObject::deleteLater);
    connect(&leaving->process, &QProcess::errorOccurred, leaving, &QObject::deleteLater);
    connect(qApp, &QCoreApplication::aboutToQuit, leaving, [leaving] { delete leaving; });
    QTimer::singleShot(patience, &leaving->process, &QProcess::kill);
    leaving->process.closeWriteChannel();
    if (leaving->process.state() == QProcess::NotRunning) {
        leaving->deleteLater();
    }
}
