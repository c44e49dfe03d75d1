#include "platform/ui/FlexGridDelegate.h"

#include "platform/ui/FlexGridModel.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

/// One line, cut with an ellipsis where the cell ends. Laid out once: most texts fit.
void paintText(QPainter &painter, const QRect &rect, const FlexCell &cell) {
    QTextLayout layout(cell.text, painter.font());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QSizeF size(line.naturalTextWidth(), line.height());
    if (size.width() > rect.width() || cell.text.contains(QChar::LineFeed)) {
        painter.drawText(rect, int(cell.alignment) | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(cell.text, Qt::ElideRight, rect.width()));
        return;
    }
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, cell.alignment, size.toSize(), rect);
    layout.draw(&painter, place.topLeft());
}

} // namespace

void paintFlexCell(QPainter &painter, const QRect &rect, const FlexCell &cell, const QPalette &palette,
                   bool selected) {
    painter.fillRect(rect, cell.back.isValid() ? cell.back : palette.color(QPalette::Base));
    if (selected) {
        QColor veil = palette.color(QPalette::Highlight);
        veil.setAlphaF(cell.back.isValid() ? 0.55F : 0.35F); // the cell's own colour still shows through
        painter.fillRect(rect, veil);
    }
    const QColor line = palette.color(QPalette::Mid);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, line);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), line);
    int pictureWidth = 0;
    if (!cell.picture.isNull()) {
        pictureWidth = cell.picture.width();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRect(rect.left(), rect.top(), pictureWidth, rect.height()), cell.picture);
    }
    if (!cell.text.isEmpty()) {
        painter.setPen(cell.fore.isValid() ? cell.fore : palette.color(QPalette::Text));
        paintText(painter, rect.adjusted(pictureWidth, 0, -1, 0), cell);
    }
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const {
    const auto *model = static_cast<const FlexGridModel *>(index.model());
    paintFlexCell(*painter, option.rect, model->cell(index.row(), index.column()), option.palette,
                  option.state.testFlag(QStyle::State_Selected));
}
