#include "platform/word/OfficeProcess.h"

#include "platform/word/OfficeTool.h"
#include "platform/word/VerbsJson.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>

namespace {

QString soffice() {
    return QStandardPaths::findExecutable(QStringLiteral("soffice"));
}

QString failureOf(const QJsonObject &answer) {
    return answer[QStringLiteral("error")].toString();
}

} // namespace

OfficeProcess::OfficeProcess(std::function<bool()> hasPrinter)
    : OfficeProcess(std::move(hasPrinter), Limits()) {}

OfficeProcess::OfficeProcess(std::function<bool()> hasPrinter, Limits limits)
    : m_hasPrinter(std::move(hasPrinter)), m_limits(limits) {
    if (!QFileInfo(OfficeTool::file()).isExecutable() || soffice().isEmpty()) {
        throw WordError(QStringLiteral("Le traitement de texte (LibreOffice) n'est pas installé sur ce "
                                       "poste : aucun document ne peut être fait."));
    }
    m_tool = std::make_unique<OfficeTool>();
}

OfficeProcess::~OfficeProcess() {
    if (m_tool) {
        OfficeTool::letGo(std::move(m_tool));
    }
}

WordDocument OfficeProcess::perform(const word::Verbs &verbs) {
    m_cancelled = false;
    const bool prints = std::ranges::any_of(
        verbs, [](const word::Verb &verb) { return std::holds_alternative<word::Print>(verb); });
    const bool onPaper = prints && m_hasPrinter();
    ready();
    const QJsonObject job{{QStringLiteral("verbs"), jsonOf(verbs)}, {QStringLiteral("printer"), onPaper}};
    m_reserved.clear();
    m_tool->process.write(QJsonDocument(job).toJson(QJsonDocument::Compact) + '\n');
    const QJsonObject made =
        answer(m_limits.document, QStringLiteral("Le traitement de texte ne répond plus : il a été arrêté."));
    const QString failure = failureOf(made);
    if (made[QStringLiteral("ended")].toBool()) {
        giveUp(failure);
    }
    if (!failure.isEmpty()) {
        throw WordError(failure);
    }
    return {made[QStringLiteral("saved")].toString(), made[QStringLiteral("pdf")].toString()};
}

/// Starts it where it does not run, and waits until it says that it does.
void OfficeProcess::ready() {
    if (!m_tool || m_tool->process.state() == QProcess::NotRunning) {
        m_tool = std::make_unique<OfficeTool>();
        m_started = false;
    }
    if (!m_started) {
        const QString failure =
            failureOf(answer(m_limits.start, QStringLiteral("Le traitement de texte ne démarre pas.")));
        if (!failure.isEmpty()) {
            giveUp(failure);
        }
        m_started = true;
    }
}

void OfficeProcess::cancel() {
    m_cancelled = true;
    if (m_wake) {
        m_wake();
    }
}

/// The next thing that the tool says; it is given up when it says nothing.
QJsonObject OfficeProcess::answer(std::chrono::milliseconds limit, const QString &late) {
    QProcess &process = m_tool->process;
    const QDeadlineTimer deadline(limit);
    QEventLoop loop;
    m_wake = [&loop] { loop.quit(); };
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    while (!process.canReadLine() && process.state() != QProcess::NotRunning && !m_cancelled &&
           !deadline.hasExpired()) {
        loop.exec();
    }
    m_wake = nullptr;
    if (!process.canReadLine()) {
        giveUp(m_cancelled             ? QString()
               : deadline.hasExpired() ? late
                                       : QStringLiteral("Le traitement de texte s'est arrêté."));
    }
    const QJsonObject said = QJsonDocument::fromJson(process.readLine()).object();
    if (said.contains(QStringLiteral("reserved"))) {
        m_reserved = said[QStringLiteral("reserved")].toString();
        return answer(limit, late);
    }
    return said;
}

/// The next document finds another office.
void OfficeProcess::giveUp(const QString &why) {
    m_tool->end();
    m_tool.reset();
    if (!m_reserved.isEmpty() && QFileInfo(m_reserved).size() == 0) { // the tool itself was killed
        QFile::remove(m_reserved);
    }
    throw WordError(why);
}

void OfficeProcess::show(const QString &path) {
    QProcess office;
    office.setProgram(soffice());
    office.setProcessEnvironment(OfficeTool::environment());
    office.setArguments({QStringLiteral("--nologo"), path});
    if (office.program().isEmpty() || !office.startDetached()) {
        throw WordError(
            QStringLiteral("Le document « %1 » est enregistré, mais le traitement de texte ne peut "
                           "pas être ouvert.")
                .arg(QDir::toNativeSeparators(path)));
    }
}
