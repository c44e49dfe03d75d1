#include "grid/BandeauMois.h"

#include "platform/ui/DatesFr.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>

/// One day: its letter and number, and the bar; framed when it is the one shown.
class JourDuBandeau : public QAbstractButton {
  public:
    explicit JourDuBandeau(QWidget *parent) : QAbstractButton(parent) {
        setFocusPolicy(Qt::NoFocus); // the keys go by day and by date already
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    void montre(QDate jour, int taux, bool choisi) {
        const QString date = DatesFr::enteteJourLong(jour);
        m_taux = taux;
        m_choisi = choisi;
        setText(QStringLiteral("%1 %2").arg(DatesFr::jourSemaine(jour).left(1)).arg(jour.day()));
        setAccessibleName(taux < 0 ? date + QStringLiteral(", repos")
                                   : QStringLiteral("%1, rempli à %2 pour cent").arg(date).arg(taux));
        setToolTip(accessibleName());
        update();
    }
    static int hauteur(const QFontMetrics &police) { return police.height() + 2 * marge + barre + 2; }
    QSize sizeHint() const override { return {1, hauteur(fontMetrics())}; }

  protected:
    void paintEvent(QPaintEvent *) override {
        QPainter dessin(this);
        const QRect cadre = rect().adjusted(0, 0, -1, -1);
        dessin.fillRect(cadre, palette().color(m_taux < 0 ? QPalette::Window : QPalette::Base));
        dessin.setPen(palette().color(m_choisi ? QPalette::Highlight : QPalette::Mid));
        dessin.drawRect(cadre);
        if (m_choisi) {
            dessin.drawRect(cadre.adjusted(1, 1, -1, -1));
        }
        dessin.setPen(palette().color(QPalette::Text));
        const bool entier = fontMetrics().horizontalAdvance(text()) <= cadre.width();
        dessin.drawText(cadre.adjusted(0, marge, 0, -marge - barre), Qt::AlignCenter,
                        entier ? text() : text().mid(2)); // narrow: the number alone
        if (m_taux >= 0) {
            QRect place(cadre.left() + 2 * marge, cadre.bottom() - marge - barre, cadre.width() - 4 * marge,
                        barre);
            dessin.fillRect(place, palette().color(QPalette::Mid));
            constexpr int tout = 100;
            place.setWidth(place.width() * m_taux / tout);
            dessin.fillRect(place, palette().color(m_taux == tout ? QPalette::Text : QPalette::Highlight));
        }
    }

  private:
    static constexpr int marge = 3;
    static constexpr int barre = 5;
    int m_taux = -1;
    bool m_choisi = false;
};

namespace {

constexpr int ecart = 2; // pixels between the days and around them

} // namespace

BandeauMois::BandeauMois(QWidget *parent) : QWidget(parent) {
    setAccessibleName(QStringLiteral("Jours du mois"));
    auto *rangee = new QHBoxLayout(this);
    rangee->setContentsMargins(ecart, ecart, ecart, ecart);
    rangee->setSpacing(ecart);
}

/// Not before a month is shown: the book starts by the week.
void BandeauMois::faitJours() {
    constexpr int auPlus = 31;
    for (int i = 0; i < auPlus; ++i) {
        m_jours << new JourDuBandeau(this);
        layout()->addWidget(m_jours[i]);
        connect(m_jours[i], &QAbstractButton::clicked, this,
                [this, i] { emit jourChoisi(m_premier.addDays(i)); });
    }
}

QSize BandeauMois::sizeHint() const {
    return {1, JourDuBandeau::hauteur(fontMetrics()) + 2 * ecart};
}

void BandeauMois::dessine(const Affichage &affichage) {
    if (affichage.remplissage.isEmpty()) {
        return; // by week
    }
    if (m_jours.isEmpty()) {
        faitJours();
    }
    const QDate jour = affichage.demande.jour;
    m_premier = QDate(jour.year(), jour.month(), 1);
    for (int i = 0; i < m_jours.size(); ++i) {
        const bool existe = i < affichage.remplissage.size();
        m_jours[i]->setVisible(existe);
        if (existe) {
            m_jours[i]->montre(m_premier.addDays(i), affichage.remplissage[i], i + 1 == jour.day());
        }
    }
}
