#pragma once

#include <QMetaType>
#include <QString>
#include <QTime>

#include <vector>

/// What is drawn over several rows of one column of a grid, beside the texts of its cells: an appointment.
struct FlexBlock {
    qint64 id = 0;
    int col = 0;
    int first = 0; ///< rows
    int last = 0;
    int day = 0; ///< weekday, 1 … 7
    QTime start;
    QTime end;
    QString name;
    QString detail;
    bool present = false;
    bool late = false;
    bool past = false;
    bool pinned = false;   ///< set aside in order to be moved
    bool cutAbove = false; ///< it goes on beyond the grid
    bool cutBelow = false;
    int lane = 0; ///< blocks that share a row stand side by side
    int lanes = 1;

    QString hours() const;
    /// Name and, behind it in brackets, the detail.
    QString caption() const;

    friend bool operator==(const FlexBlock &, const FlexBlock &) = default;
};
Q_DECLARE_METATYPE(FlexBlock)

/// Gives blocks that share rows a lane each, from the left in the order of their first rows.
void shareLanes(std::vector<FlexBlock> &blocks);
