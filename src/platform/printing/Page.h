#pragma once

#include <QLine>
#include <QList>
#include <QRect>
#include <QString>

/// One printed page as plain values: what is drawn where, in twips (1440 to the inch) from the top left
/// corner of the printable area, y downwards. Composed without a printer, drawn by drawPage().
struct Page {
    struct Line {
        QLine between;
        int thickness = 0; ///< twips

        friend bool operator==(const Line &, const Line &) = default;
    };
    struct Rectangle {
        QRect area; ///< its width and height are the distances between its edges
        int thickness = 0;
        unsigned fill = 0; ///< 0xAARRGGBB; 0: not filled

        friend bool operator==(const Rectangle &, const Rectangle &) = default;
    };
    /// One line of text. Each tab goes on to the next of `tabs` that lies ahead.
    struct Text {
        QPoint topLeft;
        QString text;
        QString family;
        int points = 0;
        bool bold = false;
        QList<int> tabs; ///< twips right of topLeft, increasing
        int roomWidth =
            0; ///< what does not fit is written smaller, then cut with an ellipsis; 0: there is room

        friend bool operator==(const Text &, const Text &) = default;
    };

    QList<Rectangle> rectangles; ///< drawn first
    QList<Line> lines;
    QList<Text> texts;

    friend bool operator==(const Page &, const Page &) = default;
};
