// tavelin-word FOLDER: makes documents with LibreOffice, which it starts, and takes along when its input
// ends. A line of input is a job, {"verbs": [...], "printer": true}. The first line of output says that the
// office runs, each of the following what came of a job: {"saved": ..., "pdf": ...} or {"error": ...,
// "ended": true} when the office has ended.
#include "Performance.h"
#include "SavedFile.h"
#include "Uno.h"
#include "platform/word/VerbsJson.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <condition_variable>
#include <csignal>
#include <deque>
#include <iostream>
#include <thread>
#include <unistd.h>

namespace {

/// What the two threads share: one reads and ends the program, whatever the other is waiting for.
struct Jobs {
    std::mutex access;
    std::condition_variable come;
    std::deque<QJsonObject> waiting;
};

[[noreturn]] void finish(const OfficeFolder &folder) {
    Office::kill();
    const std::scoped_lock whole(halfWritten);
    Reservation::remove();
    folder.remove();
    _exit(0);
}

void readAll(Jobs &jobs, const OfficeFolder &folder) {
    for (std::string line; std::getline(std::cin, line);) {
        const QJsonObject job = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        const std::scoped_lock locked(jobs.access);
        jobs.waiting.push_back(job);
        jobs.come.notify_one();
    }
    finish(folder);
}

QJsonObject next(Jobs &jobs) {
    std::unique_lock locked(jobs.access);
    jobs.come.wait(locked, [&] { return !jobs.waiting.empty(); });
    const QJsonObject job = jobs.waiting.front();
    jobs.waiting.pop_front();
    return job;
}

void say(const QJsonObject &answer) {
    std::cout << QJsonDocument(answer).toJson(QJsonDocument::Compact).toStdString() << std::endl;
}

QJsonObject failure(const QString &sentence) {
    return {{QStringLiteral("error"), sentence}};
}

/// A process that crashes is heard of before it has ended.
bool stillAlive() {
    constexpr std::chrono::milliseconds between{20};
    constexpr int times = 25;
    for (int i = 0; i < times && Office::alive(); ++i) {
        std::this_thread::sleep_for(between);
    }
    return Office::alive();
}

QJsonObject perform(const word::Verbs &verbs, Performance &performance) {
    try {
        for (const word::Verb &verb : verbs) {
            std::visit(performance, verb);
        }
        return {{QStringLiteral("saved"), performance.made().saved},
                {QStringLiteral("pdf"), performance.made().pdf}};
    } catch (const WordError &error) {
        return failure(error.sentence());
    } catch (const com::sun::star::uno::Exception &error) {
        const QString what = stillAlive() ? QStringLiteral("Le traitement de texte échoue avec « %1 » : %2")
                                                .arg(performance.name(), textOf(error.Message))
                                          : QStringLiteral("Le traitement de texte s'est arrêté.");
        Office::kill(); // who knows what else does not work
        const QString saved = performance.made().saved;
        return failure(
            saved.isEmpty() ? what : what + QStringLiteral(" Le document « %1 » est enregistré.").arg(saved));
    }
}

QJsonObject perform(const QJsonObject &job, const Office &office, const OfficeFolder &folder) {
    Performance performance(office, folder, job[QStringLiteral("printer")].toBool(), [](const QString &path) {
        say({{QStringLiteral("reserved"), path}});
    });
    return perform(word::verbsOf(job[QStringLiteral("verbs")].toArray()), performance);
}

[[noreturn]] void serve(Jobs &jobs, const OfficeFolder &folder) {
    std::unique_ptr<Office> office;
    try {
        office = std::make_unique<Office>(folder);
        say({});
        for (;;) {
            const QJsonObject job = next(jobs);
            if (!Office::alive()) {
                office = std::make_unique<Office>(folder);
            }
            QJsonObject answer = perform(job, *office, folder);
            answer[QStringLiteral("ended")] = !Office::alive();
            say(answer);
        }
    } catch (const WordError &error) {
        say(failure(error.sentence()));
    } catch (const com::sun::star::uno::Exception &) {
        say(failure(QStringLiteral("Le traitement de texte ne démarre pas.")));
    }
    finish(folder);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: tavelin-word FOLDER\n";
        return 2;
    }
    setsid(); // the keys that stop the book in a terminal are for the book
    for (const int number : {SIGPIPE, SIGTERM, SIGHUP}) {
        std::signal(number, SIG_IGN); // the end of the input is what counts
    }
    try {
        static Jobs jobs;
        static const OfficeFolder folder{QFile::decodeName(argv[1])};
        std::thread(readAll, std::ref(jobs), std::cref(folder)).detach();
        serve(jobs, folder);
    } catch (...) { // no memory, no thread: the book tells that there is no answer
        _exit(1);
    }
}
