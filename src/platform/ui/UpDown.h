#pragma once

#include <QWidget>

/// A pair of small arrow buttons beside a field; held down, they repeat. They take no focus, so that Tab goes
/// from field to field.
class UpDown : public QWidget {
    Q_OBJECT
  public:
    explicit UpDown(QWidget *parent = nullptr);

  signals:
    void upClicked();
    void downClicked();
};
