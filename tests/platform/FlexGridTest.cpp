#include "platform/ui/FlexGrid.h"

#include <QHeaderView>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Ten rows and five columns, of which 1 … 8 and 1 … 3 can be selected; what is asked for is outlined.
class FlexGridTest : public testing::Test {
  protected:
    FlexGridTest() {
        {
            const FlexGridWriting writing(grid.cells());
            grid.cells().clear(10, 5);
        }
        grid.setSelectableArea(QRect(1, 1, 3, 8));
        grid.horizontalHeader()->setDefaultSectionSize(50);
        grid.resize(300, 400);
        grid.show();
        QObject::connect(&grid, &FlexGrid::selectionAsked, &grid,
                         [this](const FlexGrid::Corners &c, FlexGrid::Gesture g) {
                             const char *const what[] = {"press", "right", "drag", "key"};
                             asked += what[int(g)];
                             for (const int part : {c.row, c.col, c.rowSel, c.colSel}) {
                                 asked += ' ' + std::to_string(part);
                             }
                             asked += ';';
                             grid.showOutline(c);
                         });
        QObject::connect(&grid, &FlexGrid::opened, &grid,
                         [this](bool byMouse) { asked += byMouse ? "opened by mouse;" : "opened;"; });
        QObject::connect(&grid, &FlexGrid::contextMenuAsked, &grid, [this] { asked += "menu;"; });
    }
    QPoint at(int row, int col) { return grid.visualRect(grid.cells().index(row, col)).center(); }
    void click(int row, int col, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(grid.viewport(), button, keys, at(row, col));
    }
    void drag(const QPoint &to) {
        QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(grid.viewport(), &move);
    }
    void type(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers with = {}) {
        for (const Qt::Key key : keys) {
            QTest::keyClick(&grid, key, with);
        }
    }
    std::string taken() { return std::exchange(asked, {}); }

    FlexGrid grid;
    std::string asked;
};

} // namespace

TEST_F(FlexGridTest, TheMouseAsksForWhatItCovers) {
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, at(3, 2));
    for (const QPoint &to : {at(3, 2) + QPoint(3, 1), at(5, 2), at(6, 3), QPoint(-50, 5000)}) {
        drag(to);
    }
    EXPECT_TRUE(grid.isDragging());
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton);
    EXPECT_FALSE(grid.isDragging());
    drag(at(7, 2));
    EXPECT_EQ(taken(), "press 3 2 3 2;drag 3 2 5 2;drag 3 2 6 3;drag 3 2 9 0;");
    click(4, 1, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(taken(), "drag 3 2 4 1;");
    click(4, 2, Qt::RightButton);
    click(7, 3, Qt::RightButton);
    EXPECT_EQ(taken(), "menu;right 7 3 7 3;menu;") << "the outlined cells stay";
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, at(7, 3));
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, at(2, 2));
    EXPECT_EQ(taken(), "opened by mouse;") << "only what is outlined";
    QTest::mousePress(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(120, 5));
    EXPECT_EQ(taken(), "press 0 2 0 2;");
}

TEST_F(FlexGridTest, KeysStayInTheSelectableCells) {
    using enum Qt::Key;
    type({Key_Return});
    EXPECT_EQ(taken(), "") << "nothing is outlined";
    type({Key_Down, Key_Up, Key_Left, Key_Right, Key_Right, Key_Right});
    EXPECT_EQ(taken(), "key 1 1 1 1;key 1 1 1 1;key 1 1 1 1;key 1 2 1 2;key 1 3 1 3;key 1 3 1 3;");
    type({Key_Down, Key_Down}, Qt::ShiftModifier);
    type({Key_Down});
    EXPECT_EQ(taken(), "key 1 3 2 3;key 1 3 3 3;key 4 3 4 3;");
    grid.showOutline(FlexGrid::Corners{7, 2, 8, 2});
    type({Key_Down}, Qt::ShiftModifier);
    type({Key_Up, Key_Enter});
    EXPECT_EQ(taken(), "key 7 2 8 2;key 6 2 6 2;opened;");
}
