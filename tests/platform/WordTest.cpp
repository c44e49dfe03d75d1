// The real office, by what it leaves in files, read back by another program, and by what it leaves in the
// system.
#include "platform/word/OfficeProcess.h"
#include "support/Modeles.h"
#include "support/Texte.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace word;
using namespace std::chrono_literals;

const QString link = q("<text:section text:name=\"Cadre\"><text:section-source xlink:type=\"simple\" "
                       "xlink:href=\"file:///ailleurs/cadre1.doc\"/><text:p>ancien</text:p></text:section>");
const QString change =
    q("<text:tracked-changes><text:changed-region text:id=\"c1\"><text:deletion><office:change-info>"
      "<dc:creator>X</dc:creator><dc:date>2026-01-01T00:00:00</dc:date></office:change-info><text:p>PERDU"
      "</text:p></text:deletion></text:changed-region></text:tracked-changes>"
      "<text:p>gar<text:change text:change-id=\"c1\"/>dé <text:bookmark text:name=\"Ici\"/></text:p>");

class WordTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<QTemporaryDir>();
        const QDir real(folder->path());
        real.mkdir(q("tmp"));
        ASSERT_TRUE(makeTemplates(
            real, {{q("feuille"), q("<text:p>Dr <text:bookmark text:name=\"NomDocteur\"/></text:p>") +
                                      flatTable(q("DebTableau"), 3, 2)},
                   {q("cadre"), flatTable(q("Début"), 2, 1)},
                   {q("suivi"), change}}));
        ASSERT_TRUE(makeTemplates(real, {{q("lettre"), q("<text:p>Bonjour</text:p>") + link}}, q("odt")));
        qputenv("TMPDIR", QFile::encodeName(path("tmp"))); // names our processes, and holds what they leave
    }
    static void TearDownTestSuite() { folder.reset(); }

    /// No process, no temporary file, no name that was only reserved.
    void TearDown() override {
        word.reset();
        EXPECT_TRUE(waitUntil([] { return processes().isEmpty(); }));
        EXPECT_TRUE(waitUntil([] { return QDir(path("tmp")).isEmpty(); }));
        EXPECT_FALSE(QFile::exists(q("/tmp/OSL_PIPE_%1_%2").arg(getuid()).arg(pipe)));
        QDir(path("Word")).removeRecursively();
    }

    static QString path(const char *name) { return folder->filePath(q(name)); }
    static QStringList written() { return QDir(path("Word")).entryList(QDir::Files, QDir::Name); }
    static Reserve names() { return {{path("Word/a1.doc"), path("Word/a2.doc")}}; }
    static QString output(const QString &program, const QStringList &arguments) {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    /// Cells parted by "|", lines by "/".
    static QString read(const QString &document) {
        QStringList lines =
            output(q("catdoc"), {q("-d"), q("utf-8"), q("-w"), document}).split(u'\n', Qt::SkipEmptyParts);
        return lines.replaceInStrings(q("\t"), q("|")).join(u'/');
    }
    /// Those of this program's offices.
    static QList<pid_t> processes(const char *program = "") {
        QList<pid_t> found;
        for (const QString &pid : QDir(q("/proc")).entryList(QDir::Dirs)) {
            QFile line(q("/proc/") + pid + q("/cmdline"));
            const QByteArray command = line.open(QIODevice::ReadOnly) ? line.readAll() : QByteArray();
            if (command.contains(path("tmp").toUtf8()) && command.split('\0').first().endsWith(program)) {
                found << pid.toInt();
            }
        }
        return found;
    }
    /// Not without one: the system takes 0 for all of us.
    static void strike(const char *program, int signal) {
        const pid_t pid = processes(program).value(0);
        ASSERT_GT(pid, 0) << program;
        kill(pid, signal);
    }

    void rememberPipe() {
        pipe = QDir(path("tmp")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0, q("-"));
    }
    OfficeProcess &start(bool printer = false, OfficeProcess::Limits limits = {30s, 60s}) {
        word = std::make_unique<OfficeProcess>([printer] { return printer; }, limits);
        rememberPipe();
        return *word;
    }
    /// What it says has failed, "-" for a cancelled one, nothing when it was made.
    std::string failure(const Verbs &verbs) {
        try {
            made = word->perform(verbs);
            return {};
        } catch (const WordError &error) {
            return error.sentence().isEmpty() ? "-" : error.sentence().remove(folder->path()).toStdString();
        }
    }
    static Verbs sheet() { return {Open{path("feuille.doc")}, names(), Select{q("DebTableau")}}; }

    static inline std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<OfficeProcess> word;
    QString pipe = q("-");
    WordDocument made;
};

} // namespace

TEST_F(WordTest, CellsBookmarksAndNames) {
    OfficeProcess &office = start();
    EXPECT_EQ(failure(sheet() << Cells{{q("œ €"), std::nullopt, q("a\r\nb"), q("4\tx"), q(""),
                                        q("5") + QChar() + QChar(0xFFFF) + u'6', q("7"), q("8"), q("9"),
                                        std::nullopt}}
                              << TypeIfAny{q("nomdocteur"), q("L'Hermite")} << TypeIfAny{q("Absent"), q("x")}
                              << Print() << Save() << Close()),
              "");
    EXPECT_EQ(read(made.saved), q("Dr L'Hermite/œ €|-|a/b/4|x/56/7|8|9"))
        << "an empty cell ends the line for catdoc";
    EXPECT_EQ(written(), (QStringList{q("a1.doc"), q("a1.pdf")}));
    const QString longText(10'000, u'é');
    EXPECT_EQ(failure(sheet() << Type{longText} << SaveOver{path("long.doc")}), "");
    EXPECT_EQ(output(q("antiword"), {q("-m"), q("UTF-8.txt"), path("long.doc")}).count(u'é'),
              longText.size());
    // what others have is theirs
    QFile::remove(path("Word/a1.doc"));
    const WordDocument again = office.perform(sheet() << Type{q("z")} << Save() << Print());
    EXPECT_EQ(again.saved, path("Word/a1.doc"));
    EXPECT_EQ(again.pdf, path("Word/a1_2.pdf"));
    EXPECT_EQ(office.perform(sheet() << Save()).saved, path("Word/a2.doc"));
    EXPECT_EQ(failure(sheet()),
              "Le document « /Word/a1.doc » ne peut pas être écrit : ce nom et les suivants "
              "sont déjà pris.");
}

TEST_F(WordTest, ALetterKeepsTheFrameThatItWasMadeWith) {
    start();
    for (const char *who : {"Durand", "Ngô"}) {
        EXPECT_EQ(failure({Open{path("cadre.doc")}, Select{q("Début")}, Cells{{q(who)}},
                           SaveOver{path("Cadre1.doc")}, Close(), Open{path("lettre.odt")}, names(), Save(),
                           Close()}),
                  "");
    }
    EXPECT_EQ(read(path("Word/a1.doc")), q("Bonjour/Durand|-"));
    EXPECT_EQ(read(path("Word/a2.doc")), q("Bonjour/Ngô|-"));
    QFile::remove(path("Cadre1.doc"));
    EXPECT_EQ(failure({Open{path("lettre.odt")}}),
              "Le fichier « /ailleurs/cadre1.doc », que le modèle « /lettre.odt » montre, est introuvable.");
}

TEST_F(WordTest, BadTemplatesAndPlacesAreNamed) {
    const auto spoilt = [](const char *name, const std::function<void(QByteArray &)> &spoil) {
        QFile good(path("feuille.doc"));
        QFile bad(path(name));
        ASSERT_TRUE(good.open(QIODevice::ReadOnly) && bad.open(QIODevice::WriteOnly));
        QByteArray content = good.readAll();
        spoil(content);
        bad.write(content);
    };
    spoilt("vide.doc", [](QByteArray &content) { content.clear(); });
    spoilt("texte.doc", [](QByteArray &content) { content = "Bonjour"; });
    spoilt("magie.doc", [](QByteArray &content) { content.truncate(8); });
    spoilt("tronque.doc", [](QByteArray &content) { content.truncate(2000); });
    spoilt("secret.doc", [](QByteArray &content) { // encrypted by its simplest way, and a key
        const qsizetype start = content.indexOf("\xEC\xA5");
        content[start + 11] = static_cast<char>(content[start + 11] | 0x81);
        content.replace(start + 14, 4, "clef");
    });
    const auto saved = [](const QString &where) -> Verbs {
        return {Open{path("feuille.doc")}, Reserve{{where}}, Save()};
    };
    const QString longName = QString(300, u'n');
    start();
    const struct {
        Verbs verbs;
        std::string said;
    } rows[] = {
        {{Open{path("absent.doc")}}, "Le modèle « /absent.doc » est introuvable."},
        {{names(), Open{path("vide.doc")}}, "Le modèle « /vide.doc » est vide."},
        {{Open{path("texte.doc")}}, "Le modèle « /texte.doc » n'est pas un document de traitement de texte."},
        {{Open{path("tmp")}}, "Le modèle « /tmp » ne peut pas être lu."},
        {{Open{path("tronque.doc")}},
         "Le modèle « /tronque.doc » est abîmé, ou n'est pas un document de traitement de texte."},
        {{Open{path("magie.doc")}},
         "Le modèle « /magie.doc » est abîmé, ou n'est pas un document de traitement de texte."},
        {{Open{path("secret.doc")}}, "Le modèle « /secret.doc » est protégé par un mot de passe."},
        {sheet() << Select{q("Fin")}, "Le modèle « /feuille.doc » n'a pas de signet « Fin »."},
        {sheet() << Select{q("NomDocteur")} << Cells{{q("x")}},
         "Dans le modèle « /feuille.doc », le signet « NomDocteur » n'est pas dans un tableau."},
        {saved(path("vide.doc/a.doc")),
         "Le document « /vide.doc » ne peut pas être écrit : le dossier ne peut "
         "pas être créé."},
        {saved(path("Word/") + longName), "Le document « /Word/" + longName.toStdString() +
                                              " » ne peut pas être écrit : son nom est trop long."},
        {{Open{path("feuille.doc")}, SaveOver{path("non/a.doc")}},
         "Le document « /non/a.doc » ne peut pas être écrit : son dossier est introuvable."},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(failure(row.verbs), row.said);
        EXPECT_EQ(written(), QStringList());
    }
    EXPECT_EQ(failure({Open{path("suivi.doc")}, names(), Select{q("Ici")}, Type{q("!")}, Save()}), "");
    EXPECT_EQ(read(made.saved), q("gardé !"));
}

TEST_F(WordTest, PrintsOnPaperWhereThereIsAPrinter) {
    const QByteArray before = qgetenv("PATH");
    QFile lpr(path("lpr"));
    ASSERT_TRUE(lpr.open(QIODevice::WriteOnly));
    lpr.write("#!/bin/sh\nexec cat >\"" + QFile::encodeName(path("papier.pdf")) + "\"\n");
    lpr.close();
    lpr.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(folder->path()) + ':' + before);
    start(true);
    EXPECT_EQ(failure(sheet() << Print() << Save()), "");
    EXPECT_EQ(made.pdf, QString());
    QFile paper(path("papier.pdf"));
    EXPECT_TRUE(paper.open(QIODevice::ReadOnly) && paper.readAll().startsWith("%PDF"));
    lpr.remove();
    EXPECT_EQ(failure(sheet() << Save() << Print()),
              "L'imprimante refuse le document : rien n'est imprimé. Il est enregistré dans le fichier "
              "« /Word/a2.doc ».");
    qputenv("PATH", before);
}

TEST_F(WordTest, AnOfficeThatDiesOrHangsIsReplaced) {
    constexpr auto limit = 4s;
    start(false, {30s, limit});
    const Verbs sheetOfAll = sheet() << Cells{QList<std::optional<QString>>(10'000, q("x"))} << Save();
    ASSERT_EQ(failure(sheet()), "") << "it has started";
    const auto soon = [](const std::function<void()> &act) { // while the document is being made
        auto *timer = new QTimer;
        QObject::connect(timer, &QTimer::timeout, timer, [=] {
            if (QFile::exists(path("Word/a1.doc"))) {
                act();
                timer->deleteLater();
            }
        });
        timer->start(0);
    };
    soon([] { strike("soffice.bin", SIGKILL); });
    EXPECT_EQ(failure(sheetOfAll), "Le traitement de texte s'est arrêté.");
    EXPECT_EQ(written(), QStringList());
    EXPECT_EQ(failure(sheet()), "");
    strike("soffice.bin", SIGSTOP);
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failure(sheet()), "Le traitement de texte ne répond plus : il a été arrêté.");
    EXPECT_LT(clock.elapsed(), std::chrono::milliseconds(limit + 2s).count());
    EXPECT_EQ(processes(), QList<pid_t>());
    EXPECT_EQ(failure(sheet()), "");
    soon([this] { word->cancel(); });
    EXPECT_EQ(failure(sheetOfAll), "-");
    EXPECT_EQ(written(), QStringList());
    EXPECT_EQ(failure(sheet()), "");
    strike("tavelin-word", SIGKILL);
    EXPECT_EQ(failure(sheet()), "Le traitement de texte s'est arrêté.");
    EXPECT_EQ(failure(sheet() << Save()), "");
}

/// The program that started the office is killed: the fixture looks for what it leaves.
TEST_F(WordTest, NothingOutlivesTheBook) {
    QProcess book;
    book.start(QCoreApplication::applicationDirPath() + q("/lettre_sans_fin"),
               {path("feuille.doc"), path("Word/a.doc")});
    ASSERT_TRUE(waitUntil([] { return written().size() == 1 && !processes("soffice.bin").isEmpty(); }));
    rememberPipe();
    book.kill();
    book.waitForFinished();
    EXPECT_TRUE(waitUntil([] { return written().isEmpty(); }));
}

TEST_F(WordTest, WithoutAnOfficeSaysSo) {
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", "/nulle/part");
    EXPECT_THROW(start(), WordError);
    qputenv("PATH", before);
}
