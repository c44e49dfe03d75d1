#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::c()); // the book spells its dates in French whatever the machine's locale
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
