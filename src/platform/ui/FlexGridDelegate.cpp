#include "platform/ui/FlexGridDelegate.h"

#include "platform/ui/FlexGridModel.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

/// The one line of `layout`, as long as it comes.
QTextLine layOut(QTextLayout &layout) {
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line;
}

/// One line, cut with an ellipsis where the cell ends. Laid out once, twice when it is cut: this is most of
/// what painting a week takes.
void paintText(QPainter &painter, const QRect &rect, const FlexCell &cell) {
    constexpr QChar ellipsis(0x2026);
    QString text = cell.text;
    text.replace(QChar::LineFeed, QChar::Space);
    QTextLayout layout(text, painter.font());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    QTextLine line = layOut(layout);
    if (line.naturalTextWidth() > rect.width()) {
        const int room = rect.width() - painter.fontMetrics().horizontalAdvance(ellipsis);
        layout.setText(text.left(line.xToCursor(room, QTextLine::CursorOnCharacter)) + ellipsis);
        line = layOut(layout);
    }
    const QSize size = QSizeF(line.naturalTextWidth(), line.height()).toSize();
    layout.draw(&painter, QStyle::alignedRect(Qt::LeftToRight, cell.alignment, size, rect).topLeft());
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
    if (index.row() == 0) { // the header shows it
        painter->fillRect(option.rect, option.palette.color(QPalette::Window));
        return;
    }
    const auto *model = static_cast<const FlexGridModel *>(index.model());
    paintFlexCell(*painter, option.rect, model->cell(index.row(), index.column()), option.palette,
                  option.state.testFlag(QStyle::State_Selected));
}
