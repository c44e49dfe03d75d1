#include "patients/RecherchePatient.h"

#include "ui_RecherchePatient.h"

#include "patients/TexteSaisi.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"
#include "practice/Essai.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QThreadPool>
#include <QTimer>
#include <utility>

namespace {

/// What the second click of a double click would do to the window that lies under the list, when the first
/// one has closed the dialog: nothing.
class SecondClic : public QObject {
  public:
    /// `ou`: the cell that was clicked, on the screen.
    explicit SecondClic(QRect ou) : QObject(qApp), m_ou(ou) {
        qApp->installEventFilter(this);
        QTimer::singleShot(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this,
                           &QObject::deleteLater);
    }
    bool eventFilter(QObject *, QEvent *evenement) override {
        const auto quoi = evenement->type();
        if (quoi != QEvent::MouseButtonPress && quoi != QEvent::MouseButtonDblClick &&
            quoi != QEvent::MouseButtonRelease) {
            return false;
        }
        return m_ou.contains(static_cast<QMouseEvent *>(evenement)->globalPosition().toPoint());
    }

  private:
    QRect m_ou;
};

/// In a file of a hundred thousand patients it takes a second, for which no window waits.
void creeIndexACote(const Environnement &env) {
    QThreadPool::globalInstance()->start([env] {
        try {
            Database patients = env.ouvrePatients();
            CreeIndexPatients(patients);
        } catch (
            const DbError &) { // searches find the same without it; what is wrong with the file, they tell
            return;
        }
    });
}

/// Without its accent: the keyboard's E finds Élodie.
QChar initialeDe(const QString &texte) {
    const QString base = texte.trimmed().left(1).normalized(QString::NormalizationForm_D);
    return base.isEmpty() ? QChar() : base[0].toLower();
}

PatientTrouve sansBlancs(const PatientTrouve &trouve) {
    return {trouve.nom.trimmed(), trouve.prenom.trimmed(), trouve.numero.trimmed(),
            trouve.dateNais.trimmed()};
}

} // namespace

RecherchePatient::RecherchePatient(QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::RecherchePatient>()) {
    ui->setupUi(this);
    setFocusProxy(ui->TxtPatient);
    ui->Grille1->setModel(&m_liste);
    ui->Grille1->verticalHeader()->setDefaultSectionSize(ui->Grille1->fontMetrics().height() + 4);
    int largeur = ui->Grille1->verticalScrollBar()->sizeHint().width() + 2 * ui->Grille1->frameWidth();
    for (const int twips : ListePatients::largeurs) {
        largeur += pixelsFromTwips(twips);
    }
    ui->Grille1->setMinimumWidth(largeur);
    montre({});

    connect(ui->TxtPatient, &QLineEdit::textChanged, this, &RecherchePatient::TxtPatient_Change);
    connect(ui->TxtPatient1, &QLineEdit::textChanged, this, &RecherchePatient::TxtPatient1_Change);
    connect(ui->Grille1, &QTableView::clicked, this, [this](const QModelIndex &index) {
        const QRect cellule = ui->Grille1->visualRect(index);
        new SecondClic({ui->Grille1->viewport()->mapToGlobal(cellule.topLeft()), cellule.size()});
        choisit(index);
    });
    connect(ui->Grille1->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (const QModelIndex ligne = ligneChoisie(); ligne.isValid()) {
            emit patientParcouru(sansBlancs(m_liste.patient(ligne.row())));
        }
    });
    for (QWidget *controle : {static_cast<QWidget *>(ui->TxtPatient), static_cast<QWidget *>(ui->TxtPatient1),
                              static_cast<QWidget *>(ui->Grille1)}) {
        controle->installEventFilter(this);
    }
}

RecherchePatient::~RecherchePatient() = default;

void RecherchePatient::utilise(const Environnement &env) {
    m_env = &env;
    creeIndexACote(env);
}

void RecherchePatient::oublieChoix() {
    ui->Grille1->clearSelection();
}

// ---- Filling

void RecherchePatient::montre(const PatientsTrouves &trouves) {
    m_liste.montre(trouves, [this](const LotDeNoms &lot) {
        QList<PatientTrouve> patients;
        lit([&](Database &base) { patients = PatientsDuLot(base, lot); });
        return patients;
    });
    for (int colonne = 0; colonne < ListePatients::NbColonnes; ++colonne) {
        ui->Grille1->setColumnWidth(colonne, pixelsFromTwips(ListePatients::largeurs[colonne]));
    }
    ui->Grille1->scrollToTop();
}

void RecherchePatient::lit(const std::function<void(Database &)> &lecture) {
    const std::optional<DbError> echec = tente(*m_env, [&] {
        const Sablier sablier;
        Database base = m_env->ouvrePatients();
        lecture(base);
    });
    const QString erreur = echec ? echec->message() : QString();
    if (std::exchange(m_erreurDite, erreur) != erreur && echec) {
        m_env->messages->error(erreur);
    }
}

// ---- Handlers

void RecherchePatient::TxtPatient_Change() {
    const Critere critere = LitCritere(ui->TxtPatient->text());
    PatientsTrouves trouves;
    if (m_env != nullptr && !std::holds_alternative<std::monostate>(critere)) {
        lit([&](Database &base) { trouves = CherchePatients(base, critere); });
    }
    montre(trouves);
    if (ui->Grille1->model()->rowCount() > 0) {
        ui->Grille1->selectRow(0);
    } else {
        emit patientPerdu();
    }
}

void RecherchePatient::TxtPatient1_Change() {
    if (ui->TxtPatient1->text().endsWith(u'\n')) { // a pasted line brings its Enter along
        transmetSaisie();
    }
}

void RecherchePatient::transmetSaisie() {
    const QString saisie = ui->TxtPatient1->text();
    ui->TxtPatient1->clear();
    ui->TxtPatient->setText(saisie.endsWith(u'\n') ? TexteSaisi(saisie) : saisie);
}

QModelIndex RecherchePatient::ligneChoisie() const {
    return ui->Grille1->selectionModel()->selectedRows().value(0);
}

void RecherchePatient::choisit(const QModelIndex &index) {
    if (index.isValid()) {
        emit patientChoisi(sansBlancs(m_liste.patient(index.row())));
    }
}

// ---- Keyboard: the arrows walk the list from the fields too, and Enter never reaches the dialog's default
// button, which would write an appointment in the middle of a search.

bool RecherchePatient::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(objet, evenement);
    }
    auto &touche = static_cast<QKeyEvent &>(*evenement);
    if (touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter) {
        toucheEntree(objet);
        return true;
    }
    const QChar avant = std::exchange(m_initiale, QChar());
    if (objet == ui->Grille1 && toucheListe(touche, avant)) {
        return true;
    }
    return toucheFleche(touche, objet) || QWidget::eventFilter(objet, evenement);
}

bool RecherchePatient::toucheFleche(QKeyEvent &touche, const QObject *controle) {
    if (touche.key() != Qt::Key_Up && touche.key() != Qt::Key_Down && touche.key() != Qt::Key_PageUp &&
        touche.key() != Qt::Key_PageDown) {
        return false;
    }
    if (!ligneChoisie().isValid()) { // whichever key: the walk begins at the top
        ui->Grille1->selectRow(0);
        return true;
    }
    if (controle != ui->Grille1) {
        ui->Grille1->setFocus();
        QCoreApplication::sendEvent(ui->Grille1, &touche);
        return true;
    }
    return false;
}

bool RecherchePatient::toucheListe(const QKeyEvent &touche, QChar avant) {
    if (touche.key() == Qt::Key_Backspace) {
        ui->TxtPatient->setFocus();
        ui->TxtPatient->backspace();
        return true;
    }
    const QChar initiale = initialeDe(touche.text());
    if (!initiale.isLetter() || (touche.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))) {
        return false;
    }
    m_initiale = initiale;
    vaAuPrenom(initiale, ligneChoisie().row() + (initiale == avant ? 1 : 0));
    return true;
}

void RecherchePatient::vaAuPrenom(QChar initiale, int depuis) {
    const auto va = [&](int premiere, int fin) {
        for (int ligne = premiere; ligne < fin; ++ligne) {
            if (initialeDe(m_liste.patient(ligne).prenom) == initiale) {
                ui->Grille1->selectRow(ligne);
                return true;
            }
        }
        return false;
    };
    int lues = std::max(depuis, 0);
    while (!va(lues, m_liste.rowCount())) {
        lues = m_liste.rowCount();
        if (!m_liste.canFetchMore({})) {
            va(0, std::min(depuis, lues)); // round
            return;
        }
        m_liste.fetchMore({});
    }
}

void RecherchePatient::toucheEntree(const QObject *controle) {
    if (controle == ui->TxtPatient1 && !ui->TxtPatient1->text().isEmpty()) {
        transmetSaisie();
    } else {
        choisit(ligneChoisie());
    }
}
