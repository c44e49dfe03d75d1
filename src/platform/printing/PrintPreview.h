#pragma once

#include "platform/printing/Page.h"

#include <QDialog>

class QLabel;
class QPrinter;
class QPrintPreviewWidget;

/// Pages as they will look on paper. It prints nothing itself: what is done about a wish to print is not
/// this window's.
class PrintPreview : public QDialog {
    Q_OBJECT
  public:
    PrintPreview(const QList<Page> &pages, const QString &title, QWidget *parent = nullptr);
    ~PrintPreview() override;

  signals:
    void printAsked();        ///< on the default printer
    void otherPrinterAsked(); ///< on one that the user chooses

  protected:
    void showEvent(QShowEvent *event) override;

  private:
    void addButtons();
    void showPlace();

    qsizetype m_pages;
    std::unique_ptr<QPrinter> m_paper;
    QPrintPreviewWidget *m_view;
    QLabel *m_place;
};
