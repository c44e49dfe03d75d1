#include "booking/VoletReplacer.h"

#include "platform/ui/PlainTip.h"
#include "schedule/Creneaux.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

enum Role { RefRole = Qt::UserRole, JourRole, AttendRole };

/// Each as a card in the colours of the day where it lies: name, place, how long it waits.
class DessinReplacer : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void habille(const Aspect &aspect) { m_aspect = aspect; }

    void paint(QPainter *peintre, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        const CouleursDuJour &jour = m_aspect.jours[index.data(JourRole).toUInt()];
        const bool attend = index.data(AttendRole).toBool();
        const bool choisi = option.state.testFlag(QStyle::State_Selected);
        const QRect carte = option.rect.adjusted(air, air, -air, 0);
        peintre->save();
        peintre->fillRect(carte, attend ? jour.teinte : m_aspect.feuille);
        peintre->fillRect(carte.adjusted(0, 0, bord - carte.width(), 0), jour.bord);
        peintre->setPen(QPen(choisi ? m_aspect.accent : jour.contour, choisi ? 2 : 1));
        peintre->drawRect(carte.adjusted(0, 0, -1, -1));
        const QStringList lignes = index.data().toString().split(u'\n');
        QRect ligne = carte.adjusted(bord + air, air / 2, -air, 0);
        ligne.setHeight(option.fontMetrics.height());
        for (int i = 0; i < lignes.size(); ++i) {
            QFont police = option.font;
            police.setBold(i == 0);
            peintre->setFont(police);
            peintre->setPen(i == 0 ? m_aspect.encre : (attend || i == 1 ? m_aspect.encre2 : m_aspect.alerte));
            peintre->drawText(ligne, Qt::AlignLeft | Qt::AlignVCenter,
                              QFontMetrics(police).elidedText(lignes[i], Qt::ElideRight, ligne.width()));
            ligne.translate(0, ligne.height());
        }
        peintre->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override {
        constexpr int lignes = 3;
        return {0, lignes * option.fontMetrics.height() + 2 * air};
    }

  private:
    static constexpr int bord = 6;
    static constexpr int air = 6;
    Aspect m_aspect;
};

} // namespace

VoletReplacer::VoletReplacer(QWidget *parent)
    : QDockWidget(QStringLiteral("À replacer"), parent), m_liste(new QListWidget(this)) {
    constexpr int largeur = 208;
    setObjectName(QStringLiteral("VoletReplacer"));
    setFeatures(DockWidgetClosable);
    setFixedWidth(largeur);
    m_liste->setObjectName(QStringLiteral("ListeReplacer"));
    m_liste->setItemDelegate(new DessinReplacer(m_liste));
    m_liste->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_liste->installEventFilter(this);
    m_liste->viewport()->installEventFilter(this);
    setWidget(m_liste);
    connect(m_liste, &QListWidget::itemDoubleClicked, this, [this] { emit voirDemande(choisi()); });
}

void VoletReplacer::montre(const QList<AReplacer> &tous, const QDateTime &maintenant, const Aspect &aspect) {
    const qint64 avant = choisi();
    static_cast<DessinReplacer *>(m_liste->itemDelegate())->habille(aspect);
    m_liste->clear();
    for (const AReplacer &un : Listes(tous)) {
        const QStringList lignes{NomReplacer(un), PlaceReplacer(un), AttenteReplacer(un, maintenant)};
        auto *entree = new QListWidgetItem(lignes.join(u'\n'), m_liste);
        entree->setData(RefRole, un.note.RefRDV);
        entree->setData(JourRole, Jour(un.note.Date1));
        entree->setData(AttendRole, EtatDe(un) == EtatReplacer::EnAttente);
        entree->setData(Qt::AccessibleTextRole, lignes.join(QStringLiteral(", ")));
        entree->setToolTip(plainTip(lignes.join(u' ')));
        if (un.note.RefRDV == avant) {
            m_liste->setCurrentItem(entree);
        }
    }
    setAccessibleName(TitreReplacer(tous));
    m_liste->setAccessibleName(TitreReplacer(tous));
}

qint64 VoletReplacer::choisi() const {
    const QListWidgetItem *entree = m_liste->currentItem();
    return entree == nullptr ? 0 : entree->data(RefRole).toLongLong();
}

void VoletReplacer::closeEvent(QCloseEvent *event) {
    QDockWidget::closeEvent(event);
    emit ferme();
}

/// True when the list has nothing to do with it: an entry is dragged off.
bool VoletReplacer::glisse(const QMouseEvent &souris) {
    const QPoint ou = souris.globalPosition().toPoint();
    if (souris.type() == QEvent::MouseButtonPress) {
        laisse(); // another button, too
        m_presse =
            souris.button() == Qt::LeftButton && m_liste->itemAt(souris.position().toPoint()) != nullptr;
        m_appui = ou;
        return false;
    }
    if (souris.type() == QEvent::MouseMove && m_presse && !m_enMain &&
        (ou - m_appui).manhattanLength() >= QApplication::startDragDistance()) {
        m_enMain = true;
        m_liste->viewport()->setCursor(Qt::ClosedHandCursor);
        emit pris(choisi(), ou);
    } else if (souris.type() == QEvent::MouseMove && m_enMain) {
        emit bouge(ou);
    } else if (souris.type() == QEvent::MouseButtonRelease && m_presse) {
        const bool enMain = m_enMain;
        m_presse = m_enMain = false;
        m_liste->viewport()->unsetCursor();
        if (enMain) {
            emit depose(ou);
        }
        return enMain;
    }
    return m_presse;
}

void VoletReplacer::laisse() {
    m_presse = false;
    if (m_enMain) {
        m_enMain = false;
        m_liste->viewport()->unsetCursor();
        emit lache();
    }
}

/// Here they are keys of the list, not of what is selected in the book.
bool VoletReplacer::eventFilter(QObject *objet, QEvent *evenement) {
    const QEvent::Type genre = evenement->type();
    if (genre == QEvent::MouseButtonPress || genre == QEvent::MouseMove ||
        genre == QEvent::MouseButtonRelease) {
        return objet != m_liste && glisse(*static_cast<QMouseEvent *>(evenement));
    }
    if (genre == QEvent::FocusOut || genre == QEvent::Hide) { // a message has the user now
        laisse();
    }
    const bool touche =
        evenement->type() == QEvent::ShortcutOverride || evenement->type() == QEvent::KeyPress;
    const int quoi = touche ? static_cast<QKeyEvent *>(evenement)->key() : 0;
    if (m_enMain && quoi == Qt::Key_Escape) {
        laisse();
        return true;
    }
    const bool voir = quoi == Qt::Key_Return || quoi == Qt::Key_Enter;
    if (!voir && quoi != Qt::Key_Delete) {
        return QDockWidget::eventFilter(objet, evenement);
    }
    evenement->accept();
    if (evenement->type() == QEvent::KeyPress && choisi() != 0) {
        voir ? emit voirDemande(choisi()) : emit retraitDemande(choisi());
    }
    return true;
}
