#include "platform/printing/PrintPreview.h"

#include "platform/printing/PageDrawing.h"

#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

PrintPreview::PrintPreview(const QList<Page> &pages, const QString &title, QWidget *parent)
    : QDialog(parent, Qt::Window), m_pages(pages.size()),
      m_paper(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      m_view(new QPrintPreviewWidget(m_paper.get(), this)), m_place(new QLabel(this)) {
    setObjectName(QStringLiteral("Apercu"));
    setWindowTitle(title);
    m_paper->setPageSize(QPageSize(QPageSize::A4));
    connect(m_view, &QPrintPreviewWidget::paintRequested, this,
            [pages](QPrinter *paper) { drawPages(*paper, pages); });
    connect(m_view, &QPrintPreviewWidget::previewChanged, this, &PrintPreview::showPlace);
    auto *rows = new QVBoxLayout(this);
    addButtons();
    rows->addWidget(m_view);
    constexpr QSize room(860, 900);
    resize(room.boundedTo(screen()->availableSize() * 4 / 5)); // its frame is to be seen, too
    m_view->fitInView();
}

PrintPreview::~PrintPreview() = default;

void PrintPreview::addButtons() {
    auto *row = new QHBoxLayout;
    const auto button = [&](const QString &name, const QString &text, const QKeySequence &keys,
                            auto handler) {
        auto *made = new QPushButton(text, this);
        made->setObjectName(name);
        made->setAutoDefault(false);
        made->setToolTip(keys.toString(QKeySequence::NativeText));
        connect(made, &QPushButton::clicked, this, handler);
        if (!keys.isEmpty()) { // beside the button's own, which setShortcut() would replace
            connect(new QShortcut(keys, this), &QShortcut::activated, this, handler);
        }
        row->addWidget(made);
    };
    const auto goTo = [this](int step) {
        m_view->setCurrentPage(std::clamp(m_view->currentPage() + step, 1, int(m_pages)));
        showPlace();
    };
    button(QStringLiteral("Imprimer"), QStringLiteral("&Imprimer"), QKeySequence::Print,
           [this] { emit printAsked(); });
    button(QStringLiteral("Choisir"), QStringLiteral("&Choisir l'imprimante..."), {},
           [this] { emit otherPrinterAsked(); });
    row->addStretch();
    button(QStringLiteral("Precedente"), QStringLiteral("<"), Qt::Key_PageUp, [goTo] { goTo(-1); });
    row->addWidget(m_place);
    button(QStringLiteral("Suivante"), QStringLiteral(">"), Qt::Key_PageDown, [goTo] { goTo(1); });
    row->addStretch();
    button(QStringLiteral("Reduire"), QStringLiteral("-"), QKeySequence::ZoomOut,
           [this] { m_view->zoomOut(); });
    button(QStringLiteral("Agrandir"), QStringLiteral("+"), QKeySequence::ZoomIn,
           [this] { m_view->zoomIn(); });
    button(QStringLiteral("PageEntiere"), QStringLiteral("&Page entière"), {},
           [this] { m_view->setZoomMode(QPrintPreviewWidget::FitInView); });
    row->addStretch();
    button(QStringLiteral("Fermer"), QStringLiteral("&Fermer"), {}, [this] { reject(); });
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void PrintPreview::showPlace() {
    m_place->setText(QStringLiteral("Page %1 sur %2").arg(m_view->currentPage()).arg(m_pages));
    findChild<QPushButton *>(QStringLiteral("Precedente"))->setEnabled(m_view->currentPage() > 1);
    findChild<QPushButton *>(QStringLiteral("Suivante"))->setEnabled(m_view->currentPage() < m_pages);
}

void PrintPreview::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    m_view->updatePreview();
}
