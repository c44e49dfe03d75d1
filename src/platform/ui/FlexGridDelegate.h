#pragma once

#include "platform/ui/Aspect.h"
#include "platform/ui/FlexGridModel.h"
#include "platform/ui/TextCache.h"

#include <QPixmap>
#include <QStyledItemDelegate>

#include <functional>

/// Paints the cells, the header and the blocks of a flex grid, in the look that it is given. In "Classique" a
/// cell is what its FlexCell says: background, lines, text, and the picture at the left over the cell's full
/// height, lines included, so that the strips of an appointment join whatever the row height.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setAspect(const Aspect &aspect, const QFont &font);
    const Aspect &aspect() const { return m_aspect; }
    /// Behind the hour labels.
    QColor labelColor(const FlexGridModel &model) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    void paintHeader(QPainter &painter, const QRect &rect, const FlexGridModel &model, int col) const;
    /// `rect` is the block's place; of a block that others cover, what they leave of it.
    void paintBlock(QPainter &painter, const QRect &rect, const FlexGridModel &model, int block) const;
    /// The part of its rows and columns that a block takes.
    QRect laneRect(const QRect &cells, const FlexBlock &block) const;

    /// Heights for the font: what a row needs at least, and what the header does.
    int leastRowHeight() const;
    int headerHeight() const;

  private:
    enum Font { Plain, Bold, Small };
    enum class Mark { None, Check, Dial, Pin };
    /// Colours of a tinted block and the width of its edge.
    struct Frame {
        QColor edge;
        QColor tint;
        QColor contour;
        int solid = 0;
    };

    int scaled(double pixels) const { return qRound(pixels * m_scale); }
    void paintClassicCell(QPainter &painter, const QRect &rect, const QModelIndex &index,
                          const QColor &text) const;
    void paintPicture(QPainter &painter, const QRect &rect, const QImage &picture) const;
    void paintTintedCell(QPainter &painter, const QRect &rect, const QModelIndex &index) const;
    void paintTintedHeader(QPainter &painter, const QRect &rect, const FlexGridModel &model, int col) const;
    void paintClassicBlock(QPainter &painter, const QRect &rect, const FlexGridModel &model, int place) const;
    void paintTintedBlock(QPainter &painter, const QRect &rect, const FlexBlock &block) const;
    void paintTintedText(QPainter &painter, const QRect &rect, const FlexBlock &block) const;
    /// A mark of `size` pixels, on a disc of `ground` where that is a colour.
    void paintMark(QPainter &painter, const QPoint &corner, int size, Mark mark, const QColor &color,
                   const QColor &ground = {}) const;
    void paintFrame(QPainter &painter, const QRect &rect, const Frame &frame) const;
    /// What is drawn for `key` once, and then copied: smooth shapes are slow.
    const QPixmap &drawnOnce(const QPainter &painter, const QList<uint> &key, QSize size,
                             const std::function<void(QPainter &)> &draw) const;
    /// Gives the width of what was written.
    int write(QPainter &painter, const QRect &rect, const QString &text, Font font,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter, int lines = 1) const;

    Aspect m_aspect;
    std::array<QFont, 3> m_fonts;
    int m_lineStep = 0; ///< pixels from line to line of a text
    double m_scale = 1; ///< of the font to the one that the sizes were made for
    QPixmap m_hatching;
    mutable TextCache m_texts;
    mutable QHash<QList<uint>, QPixmap> m_drawn;
};
