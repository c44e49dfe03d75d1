#include "platform/ui/FlexGrid.h"
#include "platform/ui/FlexGridDelegate.h"
#include "platform/ui/FlexMarks.h"

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
                         [this](const FlexGrid::Corners &c, FlexGrid::Gesture g, qint64 block) {
                             const char *const what[] = {"press", "right", "drag", "key"};
                             asked += what[int(g)];
                             for (const int part : {c.row, c.col, c.rowSel, c.colSel}) {
                                 asked += ' ' + std::to_string(part);
                             }
                             asked += block == 0 ? std::string() : " block " + std::to_string(block);
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
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(120, 5));
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
    EXPECT_EQ(counting.painted, 0);
    grid.showOutline(std::nullopt);
    grid.showNow(std::nullopt, {});
    grid.cells().setToday(2);
    { const FlexGridWriting writing(grid.cells()); }
    picture();
    EXPECT_GT(counting.painted, 0) << "what is written is painted";
    grid.setItemDelegate(nullptr);
}

TEST_F(FlexGridTest, WhatIsOutlinedCanBeRead) {
    const auto black = [this] {
        const QImage picture = grid.viewport()->grab(grid.visualRect(grid.cells().index(3, 2))).toImage();
        int dark = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                dark += picture.pixelColor(x, y).lightness() < 60 ? 1 : 0;
            }
        }
        return dark;
    };
    for (const Presentation look : {Presentation::Classique, Presentation::Contemporaine}) {
        for (const bool text : {false, true}) {
            {
                const FlexGridWriting writing(grid.cells());
                grid.cells().at(3, 2) = {
                    text ? QStringLiteral("IIII") : QString(), Qt::white, Qt::black, Qt::AlignCenter, {}};
            }
            grid.setAspect(AspectDe(look, QPalette(Qt::lightGray)));
            grid.showOutline(FlexGrid::Corners{3, 1, 3, 3});
            EXPECT_EQ(grid.viewport()->findChild<FlexMarksLayer *>()->marks().free, !text);
            EXPECT_EQ(black() > 0, text && look == Presentation::Classique) << int(look);
        }
    }
    for (const int points : {9, 12, 24, 36}) {
        for (int width = 30; width < 120; width += 7) {
            const QString hours = QStringLiteral("13:30–13:45");
            const QFont font = fitted(QFont(grid.font().family(), points, QFont::Bold), hours, width);
            EXPECT_LE(QFontMetrics(font).horizontalAdvance(hours), width) << points;
        }
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
    asked.clear();
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) { // the one under the pointer is meant
        for (const qint64 id : {3, 20, 21}) {
            const QPoint there = grid.blockRect(id).center();
            QTest::mouseClick(grid.viewport(), button, {}, there);
            EXPECT_NE(asked.find("block " + std::to_string(id)), std::string::npos) << asked;
            EXPECT_EQ(std::exchange(asked, {}).find("opened"), std::string::npos);
        }
    }
    click(5, 2, Qt::LeftButton);
    EXPECT_EQ(asked.find("block"), std::string::npos) << "it stands alone";
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
