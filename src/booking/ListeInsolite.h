#pragma once

#include "booking/Insolite.h"

#include <QFrame>

/// What is odd about a place, one under the other, each with a mark before it.
class ListeInsolite : public QFrame {
    Q_OBJECT
  public:
    explicit ListeInsolite(QWidget *parent = nullptr);

    /// An empty list is hidden.
    void montre(const QList<Insolite> &insolites);
};
