#pragma once

#include "platform/ui/Aspect.h"

#include <QWidget>

/// What is dragged, where it would go. Nothing is a null rectangle.
struct FlexGhost {
    QRect place;
    QRect labels; ///< of its rows
    QString name;
    QString text;
    QString from; ///< stands on the labels
    QString to;
    bool refused = false;

    friend bool operator==(const FlexGhost &, const FlexGhost &) = default;
};

/// What moves over a grid without being part of its picture, in pixels of the viewport. Nothing is a null
/// rectangle.
struct FlexMarks {
    QRect outline;
    QString hours;     ///< of what is outlined
    QString length;    ///< of a free range; an appointment's hours stand in a chip instead
    bool free = false; ///< nothing stands in what is outlined: it is filled
    bool oneRow = false;
    bool focused = true;

    QRect hover; ///< free slot under the pointer
    QString hoverText;

    QRect nowLine;           ///< in today's column, two pixels high
    bool nowOnBlock = false; ///< only its ends are drawn then
    QRect nowLabels;         ///< the labels that the hour takes the place of
    QRect nowPill;
    QString nowText;

    QRect taken; ///< the block that is dragged, where it still is
    FlexGhost ghost;
    QRect hint; ///< what is about to happen
    QString hintText;

    friend bool operator==(const FlexMarks &, const FlexMarks &) = default;
};

/// `font`, or a smaller one in which `text` is no more than `width` pixels wide: hours are never cut.
QFont fitted(QFont font, const QString &text, int width);

/// Draws the marks: the one child of a grid's viewport, which lets every gesture through.
class FlexMarksLayer : public QWidget {
    Q_OBJECT
  public:
    explicit FlexMarksLayer(QWidget *viewport);

    const FlexMarks &marks() const { return m_marks; }
    /// Only what changes is drawn again.
    void setMarks(const FlexMarks &marks);
    void setAspect(const Aspect &aspect, const QColor &labels);

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    void paintHover(QPainter &painter) const;
    void paintOutline(QPainter &painter) const;
    void paintFree(QPainter &painter) const;
    void paintChip(QPainter &painter) const;
    void paintNow(QPainter &painter) const;
    void paintTaken(QPainter &painter) const;
    void paintGhost(QPainter &painter) const;
    void paintGhostText(QPainter &painter, const QRect &inside) const;
    void paintGhostLabels(QPainter &painter) const;
    void paintHint(QPainter &painter) const;

    FlexMarks m_marks;
    Aspect m_aspect;
    QColor m_labels; ///< behind the hour labels
};
