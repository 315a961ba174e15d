// The main program of every test: a Qt application without window around GoogleTest, in the C locale.

#include <QCoreApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QLocale::setDefault(QLocale::c());
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
