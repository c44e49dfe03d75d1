#pragma once

#include <QStyledItemDelegate>

/// Paints a flex-grid cell straight from its FlexCell: background, lines, text, and the picture at the left
/// over the cell's full height, lines included, so that the strips of an appointment join whatever the row
/// height.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

struct FlexCell;
void paintFlexCell(QPainter &painter, const QRect &rect, const FlexCell &cell, const QPalette &palette,
                   bool selected);
