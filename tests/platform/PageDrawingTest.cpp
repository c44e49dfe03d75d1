#include "platform/printing/PageDrawing.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

/// 96 dots to the inch: 15 twips each.
QImage drawn(const Page &page) {
    QImage image(400, 200, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawPage(painter, page);
    return image;
}

/// The first and last columns that are not white.
std::pair<int, int> inked(const QImage &image) {
    std::pair<int, int> columns{image.width(), -1};
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != 0xFFFFFFFF) {
                columns = {std::min(columns.first, x), x};
            }
        }
    }
    return columns;
}

Page written(const QString &text, const QList<int> &tabs, int roomWidth) {
    Page page;
    page.texts << Page::Text{{150, 150}, text, QStringLiteral("Arial"), 10, true, tabs, roomWidth};
    return page;
}

} // namespace

TEST(PageDrawing, KeepsTheSizeOfATwip) {
    Page page;
    page.rectangles << Page::Rectangle{QRect(150, 300, 1500, 750), 15, 0xFFFFFFAA}
                    << Page::Rectangle{QRect(3000, 300, 1500, 750), 15, 0};
    page.lines << Page::Line{{150, 2250, 1650, 2250}, 30};
    const QImage image = drawn(page);
    EXPECT_EQ(image.pixel(50, 40), 0xFFFFFFAA);
    EXPECT_EQ(image.pixel(250, 40), 0xFFFFFFFF);
    EXPECT_NE(image.pixel(250, 20), 0xFFFFFFFF) << "its upper edge";
    EXPECT_EQ(image.pixel(60, 150), 0xFF000000);
    EXPECT_EQ(image.pixel(120, 150), 0xFFFFFFFF);
}

TEST(PageDrawing, TabsGoToTheStopsAheadAndLongTextsAreCut) {
    const int threeTabs = inked(drawn(written(QStringLiteral("\t\t\t|"), {1500, 3000, 4500}, 0))).first;
    EXPECT_NEAR(threeTabs, 10 + 300, 3);
    const int onlyAhead = inked(drawn(written(QStringLiteral("\u00A0\t|"), {10, 1500}, 0))).first;
    EXPECT_NEAR(onlyAhead, 10 + 100, 3);
    const QString name = QStringLiteral("SAINT-MARTIN Jean-Baptiste");
    const auto end = [&name](int room) { return inked(drawn(written(name, {}, room))).second; };
    const int whole = end(0);
    const int smaller = end((whole - 10) * 15 * 85 / 100);
    EXPECT_NEAR(smaller, 10 + (whole - 10) * 0.85, 4);
    EXPECT_LT(end((whole - 10) * 15 / 2), whole / 2 + 10) << "cut";
    const int cut = inked(drawn(written(QString(500, u'M'), {}, 3000))).second;
    EXPECT_LE(cut, 10 + 3000 / 15);
    EXPECT_GT(cut, 10 + 2700 / 15);
}

TEST(PageDrawing, APdfHasEveryPage) {
    const Page page = written(QStringLiteral("été"), {}, 0);
    EXPECT_TRUE(pdfOf({page, page, page}, QStringLiteral("Titre")).contains("/Count 3"));
}
