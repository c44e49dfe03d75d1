#include "platform/ui/FlexGridDelegate.h"

#include "platform/ui/FlexGridModel.h"

#include <QPainter>

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
        const bool onPalette = !cell.fore.isValid();
        painter.setPen(onPalette ? palette.color(QPalette::Text) : cell.fore);
        const QRect textRect = rect.adjusted(pictureWidth, 0, -1, 0);
        const QString shown = painter.fontMetrics().elidedText(cell.text, Qt::ElideRight, textRect.width());
        painter.drawText(textRect, int(cell.alignment) | Qt::TextSingleLine, shown);
    }
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const {
    const auto *model = static_cast<const FlexGridModel *>(index.model());
    paintFlexCell(*painter, option.rect, model->cell(index.row(), index.column()), option.palette,
                  option.state.testFlag(QStyle::State_Selected));
}
