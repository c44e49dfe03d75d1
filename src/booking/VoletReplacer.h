#pragma once

#include "grid/AReplacer.h"
#include "platform/ui/Aspect.h"

#include <QDockWidget>
#include <QListWidget>

/// The pinboard at the side: appointments that wait for another place.
class VoletReplacer : public QDockWidget {
    Q_OBJECT
  public:
    explicit VoletReplacer(QWidget *parent = nullptr);

    /// The one that is chosen stays chosen.
    void montre(const QList<AReplacer> &tous, const QDateTime &maintenant, const Aspect &aspect);
    /// 0: none.
    qint64 choisi() const;

  signals:
    void voirDemande(qint64 RefRDV);
    void retraitDemande(qint64 RefRDV);
    /// By hand.
    void ferme();
    /// An entry is dragged off the list; then moved, and dropped or let go. Positions are the screen's.
    void pris(qint64 RefRDV, const QPoint &position);
    void bouge(const QPoint &position);
    void depose(const QPoint &position);
    void lache();

  protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    bool glisse(const QMouseEvent &souris);
    void laisse();

    QListWidget *m_liste;
    QPoint m_appui;
    bool m_presse = false;
    bool m_enMain = false;
};
