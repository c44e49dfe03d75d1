#include "practice/Courrier.h"

#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Environnement.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString pasInstalle = QStringLiteral(
    "Le traitement de texte n'est pas installé sur ce poste : aucun document ne peut être fait.");

} // namespace

/// It stays until the work has ended: what lies under it must not be worked in before.
class Courrier::Fenetre : public QDialog {
  public:
    Fenetre(QWidget *parent, std::function<void()> annule) : QDialog(parent), m_annule(std::move(annule)) {
        constexpr int largeurMin = 380;
        setWindowTitle(QStringLiteral("Courrier"));
        setWindowModality(Qt::WindowModal);
        setMinimumWidth(largeurMin);
        m_texte.setTextFormat(Qt::PlainText);
        m_barre.setRange(0, 0); // nobody knows how long it takes
        m_barre.setTextVisible(false);
        auto *disposition = new QVBoxLayout(this);
        disposition->addWidget(&m_texte);
        disposition->addWidget(&m_barre);
        disposition->addWidget(&m_bouton, 0, Qt::AlignRight);
        connect(&m_bouton, &QPushButton::clicked, this, &Fenetre::reject);
    }

    void dit(const QString &texte) { m_texte.setText(texte); }
    void reject() override {
        m_bouton.setEnabled(false);
        m_annule();
    }

  private:
    std::function<void()> m_annule;
    QLabel m_texte;
    QProgressBar m_barre;
    QPushButton m_bouton{QStringLiteral("Annuler")};
};

Courrier::Courrier(const Environnement &env, QWidget *parent, int documents)
    : m_env(env), m_impossible(pasInstalle), m_seul(documents == 1) {
    try {
        m_traitement = env.traitementDeTexte ? env.traitementDeTexte() : nullptr;
    } catch (const WordError &erreur) {
        m_impossible = erreur.sentence();
    }
    if (m_traitement) {
        m_impossible.clear();
        m_fenetre = std::make_unique<Fenetre>(parent, [this] { annule(); });
        m_fenetre->dit(QStringLiteral("Préparation du traitement de texte…"));
        m_fenetre->show();
    }
}

Courrier::~Courrier() = default;

std::optional<WordDocument> Courrier::fait(const word::Verbs &verbes, const QString &texte) {
    if (!m_traitement || m_arrete) {
        ditImpossible();
        return std::nullopt;
    }
    m_fenetre->dit(texte);
    m_fenetre->show();
    try {
        const Sablier sablier;
        return m_traitement->perform(verbes);
    } catch (const WordError &erreur) {
        cache();
        m_impossible = erreur.sentence();
    }
    ditImpossible();
    return std::nullopt;
}

void Courrier::cache() {
    if (m_fenetre) {
        m_fenetre->hide();
    }
}

bool Courrier::arrete() const {
    return m_arrete;
}

bool Courrier::montre(const QString &document) {
    try {
        if (m_traitement) {
            m_traitement->show(document);
            return true;
        }
    } catch (const WordError &erreur) {
        cache();
        m_impossible = erreur.sentence();
    }
    ditImpossible();
    return false;
}

void Courrier::annule() {
    m_arrete = true;
    if (m_seul) {
        m_fenetre->dit(QStringLiteral("Le document est abandonné…"));
        m_traitement->cancel();
    } else {
        m_fenetre->dit(QStringLiteral("Le courrier s'arrête après le document en cours…"));
    }
}

/// Once: who has cancelled knows it.
void Courrier::ditImpossible() {
    const QString texte = std::exchange(m_impossible, {});
    if (!texte.isEmpty()) {
        m_env.messages->error(texte);
    }
}
