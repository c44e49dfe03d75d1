#include "booking/FrmAjouter.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QTableView>
#include <QThreadPool>
#include <gtest/gtest.h>

namespace {

struct Connu {
    QString nom;
    QString prenom;
    QString numero;
};

/// The sample practice's patients, and a free week.
class ComptesTest : public testing::Test {
  protected:
    ComptesTest() {
        cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from RDV"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        cabinet.ouvre(Base::Patients).execute(SqlText("update TabPat set RDVNonHonoré = 'N'"));
        for (const Record row : cabinet.ouvre(Base::Patients).query(SqlText("select * from TabPat"))) {
            patients.append(
                {row[u"nom"].toText().trimmed(), row[u"PreNom"].toText().trimmed(), row[u"cptid"].toText()});
        }
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // an index may be on its way

    CabinetDEssai cabinet{OptionsCabinet{.rdv = 200, .aujourdhui = QDate(2026, 3, 11)}};
    QList<Connu> patients;
};

/// Somebody at a French keyboard, who looks at the list after each key.
class Frappe {
  public:
    explicit Frappe(const QWidget &fenetre)
        : m_champ(controle<QLineEdit>(fenetre, q("TxtPatient"))),
          m_liste(controle<QTableView>(fenetre, q("Grille1"))) {}

    /// Keys pressed until the patient is highlighted.
    int numero(const Connu &patient) {
        tape(m_champ, patient.numero);
        return std::exchange(m_touches, 0);
    }
    int nom(const Connu &patient) {
        for (const QChar lettre : patient.nom.toLower()) {
            tape(m_champ, lettre);
            if (m_liste.model()->rowCount() > 0 && dit(0, 0).compare(patient.nom, Qt::CaseInsensitive) == 0) {
                break;
            }
        }
        vaALaLigne(patient);
        return std::exchange(m_touches, 0);
    }

  private:
    QString dit(int ligne, int colonne) const {
        return m_liste.model()->index(ligne, colonne).data().toString().trimmed();
    }
    /// A letter with a circumflex or a diaeresis is two keys.
    static QString decompose(const QString &texte) {
        return texte.normalized(QString::NormalizationForm_D).toLower();
    }
    void tape(QWidget &ou, const QString &texte) {
        for (const QChar lettre : texte) { // QTest knows no œ
            for (const auto genre : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent touche(genre, lettre.toUpper().unicode(), Qt::NoModifier, lettre);
                QApplication::sendEvent(&ou, &touche);
            }
        }
        m_touches += int(texte.size() + decompose(texte).count(QRegularExpression(q("[\u0302\u0308]"))));
    }
    void bas() {
        QTest::keyClick(m_liste.hasFocus() ? static_cast<QWidget *>(&m_liste) : &m_champ, Qt::Key_Down);
        ++m_touches;
    }
    int ligne(const Connu &patient) const {
        for (int i = 0;; ++i) {
            if (i == m_liste.model()->rowCount() && !m_liste.model()->canFetchMore({})) {
                return -1;
            }
            if (i == m_liste.model()->rowCount()) {
                m_liste.model()->fetchMore({});
            }
            if (dit(i, 2) == patient.numero) {
                return i;
            }
        }
    }
    /// The shorter of two ways: down all along, or down once and by the first name's letter.
    void vaALaLigne(const Connu &patient) {
        const int but = ligne(patient);
        ASSERT_GE(but, 0) << patient.nom;
        const QString initiale = decompose(patient.prenom).left(1);
        int saut = 1;
        while (saut < but && decompose(dit(saut, 1)).left(1) != initiale) {
            ++saut;
        }
        const int parLettre = 2 + but - saut;
        const bool lettre = parLettre < but && !initiale.isEmpty();
        if (lettre) {
            bas();
            tape(m_liste, initiale);
        }
        for (int reste = lettre ? but - saut : but; reste > 0; --reste) {
            bas();
        }
    }

    QLineEdit &m_champ;
    QTableView &m_liste;
    int m_touches = 0;
};

int mediane(QList<int> comptes) {
    std::ranges::sort(comptes);
    return comptes[comptes.size() / 2];
}

} // namespace

TEST_F(ComptesTest, FewKeysNameEveryPatient) {
    const Environnement &env = cabinet.environnement();
    FrmAjouter fenetre(env, {q("01"), q("1"), QDate(2026, 3, 11), {QTime(9, 0), QTime(9, 30)}, 15, 1});
    fenetre.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    Frappe frappe(fenetre);
    auto &champ = controle<QLineEdit>(fenetre, q("TxtPatient"));
    constexpr int entrees = 2; // one opens the window, one picks
    constexpr int unSur = 10;
    QList<int> parNumero;
    QList<int> parNom;
    for (int i = 0; i < patients.size(); i += unSur) {
        for (const bool numero : {true, false}) {
            champ.setFocus();
            champ.clear(); // as the window opens
            EXPECT_EQ(texte(fenetre, "Text1"), QString());
            (numero ? parNumero : parNom)
                << entrees + (numero ? frappe.numero(patients[i]) : frappe.nom(patients[i]));
            EXPECT_EQ(texte(fenetre, "Text1") + texte(fenetre, "Text2") + texte(fenetre, "txtNumPatient"),
                      patients[i].nom + patients[i].prenom + patients[i].numero);
        }
    }
    const auto huit = std::ranges::count_if(parNom, [](int touches) { return touches <= 8; });
    EXPECT_LE(mediane(parNumero), 6);
    EXPECT_LE(std::ranges::max(parNumero), 6);
    EXPECT_LE(mediane(parNom), 8);
    std::cout << parNom.size() << " patients: by number median " << mediane(parNumero) << ", most "
              << std::ranges::max(parNumero) << "; by name median " << mediane(parNom) << ", within 8 "
              << 100 * huit / parNom.size() << " %, most " << std::ranges::max(parNom) << '\n';
}

TEST_F(ComptesTest, FromTheFreeSlotToTheRow) {
    cabinet.maintenant.setTime(QTime(7, 0)); // no slot is past
    FrmEntree fenetre(cabinet.environnement());
    fenetre.Form_Load();
    fenetre.show();
    auto &grille = controle<FlexGrid>(fenetre, q("GrilleRDV"));
    for (int i = 0; i < 6; ++i) {
        fenetre.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        const Connu &patient = patients[97 + 195 * i];
        const QPoint libre = grille.visualRect(grille.cells().index(2 + i, 3)).center();
        QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, libre);
        QTimer::singleShot(0, &fenetre, [&] {
            QWidget &ajouter = *QApplication::activeModalWidget();
            Frappe frappe(ajouter);
            i % 2 == 0 ? frappe.numero(patient) : frappe.nom(patient);
            QTest::keyClick(ajouter.focusWidget(), Qt::Key_Return);
        });
        QTest::keyClick(&grille, Qt::Key_Return);
        Database carnet = cabinet.ouvre(Base::RendezVous);
        const Records rows = carnet.query(SqlText("select * from RDV order by RefRDV"));
        ASSERT_EQ(rows.count(), i + 1);
        const auto champ = [&](const char *nom) {
            return rows.at(i, int(rows.fields().indexOf(q(nom)))).toText();
        };
        EXPECT_EQ(champ("Nom") + champ("Prenom") + champ("NumPatient"),
                  patient.nom + patient.prenom + patient.numero);
    }
}
