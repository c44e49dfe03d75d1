#include "Office.h"

#include "Uno.h"
#include "platform/word/WordProcessor.h"

#include <QByteArrayList>
#include <QDir>

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace com::sun::star;

namespace {

const QString program = QStringLiteral(OFFICE_PROGRAM);
constexpr int startAgain = 81; // how it ends after having made a profile

// There is one at a time.
std::mutex changing;
pid_t process = 0;
int ending = 0; // how it ended, once it has

std::vector<char *> pointers(QByteArrayList &texts) {
    std::vector<char *> list;
    list.reserve(texts.size() + 1);
    for (QByteArray &text : texts) {
        list.push_back(text.data());
    }
    list.push_back(nullptr);
    return list;
}

QByteArrayList environmentWith(const QString &temporary) {
    QByteArrayList variables{"TMPDIR=" + QFile::encodeName(temporary)};
    for (char **variable = environ; *variable != nullptr; ++variable) {
        if (!QByteArray(*variable).startsWith("TMPDIR=")) {
            variables << *variable;
        }
    }
    return variables;
}

/// Between fork and exec: nothing that takes memory.
[[noreturn]] void become(const char *file, char *const *arguments, char *const *environment, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const int number : {SIGPIPE, SIGTERM, SIGHUP}) {
        signal(number, SIG_DFL);
    }
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nothing, standard);
    }
    if (getppid() == parent) { // who may have ended before the first line
        execve(file, arguments, environment);
    }
    _exit(1);
}

void launch(const OfficeFolder &folder) {
    QByteArrayList arguments{QFile::encodeName(program + QStringLiteral("/soffice.bin")),
                             "--headless",
                             "--norestore",
                             "--nologo",
                             "--nodefault",
                             "--nolockcheck",
                             "--nofirststartwizard",
                             "--accept=pipe,name=" + folder.pipe().toUtf8() +
                                 ";urp;StarOffice.ComponentContext",
                             "-env:UserInstallation=" + QUrl::fromLocalFile(folder.profile()).toEncoded()};
    QByteArrayList variables = environmentWith(folder.temporary());
    const std::vector<char *> argv = pointers(arguments);
    const std::vector<char *> envp = pointers(variables);
    const pid_t parent = getpid();
    const std::scoped_lock locked(changing);
    process = fork();
    if (process == 0) {
        become(argv[0], argv.data(), envp.data(), parent);
    }
}

/// Over the bridge; nothing as long as it does not answer.
uno::Reference<uno::XComponentContext> reach(const OfficeFolder &folder) {
    static const auto here = [] {
        rtl::Bootstrap::set("URE_MORE_TYPES", unoUrl(program + QStringLiteral("/types/offapi.rdb")));
        return cppu::defaultBootstrap_InitialComponentContext();
    }();
    try {
        const auto resolver = bridge::UnoUrlResolver::create(here);
        return {resolver->resolve(unoText(
                    QStringLiteral("uno:pipe,name=%1;urp;StarOffice.ComponentContext").arg(folder.pipe()))),
                uno::UNO_QUERY};
    } catch (const connection::NoConnectException &) {
        return {};
    }
}

} // namespace

Office::Office(const OfficeFolder &folder) {
    constexpr std::chrono::milliseconds between{30};
    QDir(folder.profile()).removeRecursively();
    QDir().mkpath(folder.temporary());
    launch(folder);
    while (!m_context.is()) {
        if (!alive()) {
            if (!WIFEXITED(ending) || WEXITSTATUS(ending) != startAgain) {
                throw WordError(QStringLiteral("Le traitement de texte ne démarre pas."));
            }
            launch(folder);
        }
        std::this_thread::sleep_for(between);
        m_context = reach(folder);
    }
}

Office::~Office() {
    kill();
}

bool Office::alive() {
    const std::scoped_lock locked(changing);
    if (process > 0 && waitpid(process, &ending, WNOHANG) != 0) {
        process = 0;
    }
    return process > 0;
}

void Office::kill() {
    const std::scoped_lock locked(changing);
    if (process > 0) {
        ::kill(process, SIGKILL);
        waitpid(process, &ending, 0);
        process = 0;
    }
}
