#include "platform/ui/FlexGrid.h"
#include "platform/ui/FlexGridDelegate.h"

#include <QAction>
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
    void drag(const QPoint &to, Qt::MouseButton button = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton, button, {});
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

FlexBlock block(qint64 id, int col, int first, int last) {
    FlexBlock made;
    made.id = id;
    made.col = made.day = col;
    made.first = first;
    made.last = last;
    return made;
}

class Counting : public FlexGridDelegate {
  public:
    explicit Counting(const FlexGridDelegate &like) { setAspect(like.aspect(), QFont()); }
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        ++painted;
        FlexGridDelegate::paint(painter, option, index);
    }
    mutable int painted = 0;
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
    QTest::mouseRelease(grid.horizontalHeader()->viewport(), Qt::LeftButton);
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

TEST_F(FlexGridTest, AMarkThatMovesRepaintsNoCell) {
    Counting counting(grid.painting());
    grid.setItemDelegate(&counting);
    const auto picture = [this] { return grid.viewport()->grab().toImage(); };
    grid.showOutline(FlexGrid::Corners{2, 1, 3, 1}, {QStringLiteral("08:00"), {}, 0});
    picture();
    grid.showOutline(FlexGrid::Corners{3, 1, 3, 1}, {QStringLiteral("08:30"), {}, 0});
    const QImage before = picture(); // kept from the first mark that moves
    EXPECT_GT(counting.painted, 0);
    counting.painted = 0;
    grid.showOutline(FlexGrid::Corners{5, 2, 6, 2}, {QStringLiteral("09:00"), {}, 0});
    EXPECT_NE(picture(), before) << "the outline has moved";
    grid.showNow(4.5, QStringLiteral("10:12"));
    const QImage now = picture();
    QTest::mouseMove(grid.viewport(), at(7, 3));
    EXPECT_NE(picture(), now) << "the slot under the pointer is marked";
    const QImage hovered = picture();
    grid.showGhost(FlexGrid::Ghost{{2, 1, 4, 1}, QStringLiteral("ROUX"), {}, {}, {}, false});
    EXPECT_NE(picture(), hovered) << "what is dragged";
    EXPECT_EQ(counting.painted, 0);
    grid.showGhost(std::nullopt);
    EXPECT_EQ(picture(), hovered);
    grid.showOutline(std::nullopt);
    grid.showNow(std::nullopt, {});
    grid.cells().setToday(2);
    { const FlexGridWriting writing(grid.cells()); }
    picture();
    EXPECT_GT(counting.painted, 0) << "what is written is painted";
    grid.setItemDelegate(nullptr);
}

TEST_F(FlexGridTest, ABlockThatIsMovedIsInHandUntilItIsDroppedOrLetGo) {
    QObject::connect(&grid, &FlexGrid::blockTaken, &grid, [this](qint64 id, bool edge) {
        asked += "taken " + std::to_string(id) + (edge ? " by its edge;" : ";");
    });
    QObject::connect(&grid, &FlexGrid::blockMoved, &grid,
                     [this](const QPoint &, bool ctrl) { asked += ctrl ? "ctrl;" : "moved;"; });
    QObject::connect(&grid, &FlexGrid::blockDropped, &grid, [this] { asked += "dropped;"; });
    QObject::connect(&grid, &FlexGrid::blockLetGo, &grid, [this] { asked += "let go;"; });
    QAction action;
    action.setShortcut(Qt::Key_F5);
    grid.addAction(&action);
    QObject::connect(&action, &QAction::triggered, &grid, [this] { asked += "action;"; });
    {
        const FlexGridWriting writing(grid.cells());
        grid.cells().addBlock(block(7, 2, 3, 4));
    }
    grid.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
    const auto press = [this](const QPoint &where) {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, where);
        taken();
    };
    const auto release = [this] {
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, at(6, 1));
        return taken();
    };
    press(at(3, 2));
    drag(at(6, 2));
    EXPECT_EQ(taken(), "drag 3 2 6 2;") << "what cannot be moved selects";
    release();
    grid.setBlocksMovable(true);
    press(at(3, 2));
    drag(at(3, 2) + QPoint(0, QApplication::startDragDistance() - 1));
    EXPECT_EQ(release(), "") << "a click";
    press(at(3, 2));
    drag(at(6, 1));
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, at(6, 1));
    type({Qt::Key_F5, Qt::Key_Down, Qt::Key_Return});
    QTest::keyPress(&grid, Qt::Key_Control);
    QTest::keyRelease(&grid, Qt::Key_Control);
    EXPECT_TRUE(grid.isDragging());
    EXPECT_EQ(release(), "taken 7;moved;ctrl;moved;dropped;") << "neither other buttons nor keys";
    type({Qt::Key_F5});
    EXPECT_EQ(taken(), "action;");
    press(grid.blockRect(7).bottomLeft() + QPoint(9, 0));
    drag(at(6, 1));
    type({Qt::Key_Escape});
    EXPECT_EQ(taken(), "taken 7 by its edge;moved;let go;");
    drag(at(7, 1));
    EXPECT_EQ(release(), "");
    const std::pair<const char *, std::function<void()>> ends[] = {
        {"focus", [this] { grid.clearFocus(); }},
        {"hidden", [this] { grid.hide(); }},
        {"message", [this] { grid.endDrag(); }},
        {"released elsewhere", [this] { drag(at(5, 1), Qt::NoButton); }}};
    for (const auto &[name, end] : ends) {
        grid.show();
        press(at(3, 2));
        drag(at(6, 1));
        taken();
        end();
        EXPECT_EQ(taken(), "let go;") << name;
        release();
    }
}

TEST_F(FlexGridTest, BlocksOfOneRowStandSideBySide) {
    {
        const FlexGridWriting writing(grid.cells());
        for (int i = 0; i < 12; ++i) {
            grid.cells().addBlock(block(i + 1, 1, 2, 2));
        }
        grid.cells().addBlock(block(20, 1, 3, 4));
        grid.cells().addBlock(block(21, 1, 4, 5));
        grid.cells().addBlock(block(22, 1, 5, 6));
        grid.cells().addBlock(block(23, 2, 5, 6));
    }
    EXPECT_TRUE(grid.blockRect(1).isEmpty()) << "the stated look shows the last of a cell";
    grid.setAspect(AspectDe(Presentation::Contemporaine, QPalette()));
    const QRegion cell(grid.visualRect(grid.cells().index(2, 1)));
    QRegion taken;
    for (int i = 1; i <= 12; ++i) {
        const QRect place = grid.blockRect(i);
        EXPECT_FALSE(place.isEmpty() || taken.intersects(place)) << i;
        taken += place;
    }
    EXPECT_TRUE((taken - cell).isEmpty());
    EXPECT_EQ(grid.blockRect(20).left(), grid.blockRect(22).left()) << "a lane that is free again";
    EXPECT_GT(grid.blockRect(21).left(), grid.blockRect(20).right());
    EXPECT_GT(grid.blockRect(23).width(), 1.5 * grid.blockRect(20).width()) << "another column";
}

TEST_F(FlexGridTest, RowsShareTheHeightUntilTheirTextNeedsIt) {
    const auto below = [this] {
        return grid.viewport()->height() - 9 * grid.rowHeight(1); // the header shows the tenth
    };
    for (const int height : {300, 400, 2000}) {
        grid.resize(300, height);
        EXPECT_TRUE(below() >= 0 && below() < 9) << height;
    }
    QFont large = grid.font();
    large.setPointSize(24);
    grid.setFont(large);
    grid.resize(300, 200);
    EXPECT_GE(grid.rowHeight(1), QFontMetrics(large).height() * 9 / 10);
    EXPECT_LT(below(), 0) << "it scrolls";
}
