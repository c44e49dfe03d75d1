#include "platform/ui/FlexGrid.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

class FlexGridTest : public testing::Test {
  protected:
    FlexGridTest() {
        fill(10, 5);
        grid.setRow(2);
        grid.setCol(2);
        changes.clear();
    }
    void fill(int rows, int cols) {
        const FlexGridWriting writing(grid.cells());
        grid.cells().clear(rows, cols);
    }
    std::array<int, 4> selection() const { return {grid.row(), grid.col(), grid.rowSel(), grid.colSel()}; }

    FlexGrid grid;
    QSignalSpy changes{&grid, &FlexGrid::selectionChanging};
};

using Four = std::array<int, 4>;

} // namespace

TEST_F(FlexGridTest, AnotherBeginningCollapsesAnotherEndExtends) {
    grid.setRowSel(5);
    grid.setColSel(3);
    EXPECT_EQ(selection(), (Four{2, 2, 5, 3}));
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 8);
    EXPECT_EQ(changes.count(), 2);
    grid.setRow(3);
    EXPECT_EQ(selection(), (Four{3, 2, 3, 2}));
    grid.setColSel(4);
    grid.setCol(1);
    EXPECT_EQ(selection(), (Four{3, 1, 3, 1}));
    EXPECT_EQ(changes.count(), 5);
}

TEST_F(FlexGridTest, SettingTheSameValueDoesNothingAtAll) {
    grid.setRowSel(5);
    changes.clear();
    grid.setRow(2);
    grid.setCol(2);
    grid.setRowSel(5);
    grid.setColSel(2);
    EXPECT_EQ(selection(), (Four{2, 2, 5, 2})) << "an equal beginning must not collapse";
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(FlexGridTest, AHandlerThatAdjustsIsRunAgainAndEnds) {
    QObject::connect(&grid, &FlexGrid::selectionChanging, &grid, [&] {
        if (grid.rowSel() == grid.cells().rows() - 1) {
            grid.setRowSel(grid.rowSel() - 1);
        }
    });
    grid.setRowSel(9);
    EXPECT_EQ(selection(), (Four{2, 2, 8, 2}));
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(FlexGridTest, AWholeDrawingIsOneReset) {
    QSignalSpy resets(&grid.cells(), &QAbstractItemModel::modelReset);
    QSignalSpy cells(&grid.cells(), &QAbstractItemModel::dataChanged);
    {
        const FlexGridWriting writing(grid.cells());
        grid.cells().clear(42, 8);
        for (int row = 0; row < 42; ++row) {
            grid.cells().at(row, 3).text = QString::number(row);
        }
        grid.cells().at(42, 3).text = QStringLiteral("outside");
        grid.cells().at(-1, 99).text = QStringLiteral("outside");
    }
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(cells.count(), 0);
    EXPECT_EQ(grid.cells().cell(41, 3).text, QStringLiteral("41"));
    EXPECT_EQ(grid.cells().cell(42, 3).text, QString());
    EXPECT_EQ(selection(), (Four{2, 2, 2, 2})) << "a redraw keeps the selection";
    EXPECT_TRUE(grid.isRowHidden(0)) << "the header shows row 0";
    EXPECT_EQ(grid.model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("0"));
}

TEST_F(FlexGridTest, ASmallerGridTakesTheSelectionAlong) {
    grid.setRow(9);
    grid.setRowSel(4);
    fill(4, 2);
    EXPECT_EQ(selection(), (Four{3, 1, 3, 1}));
    fill(0, 0);
    EXPECT_TRUE(grid.selectionModel()->selectedIndexes().isEmpty());
}
