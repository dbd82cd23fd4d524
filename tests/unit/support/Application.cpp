// main of every unit test: an application object, for events and for the log's name.
#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tessarad"));
    return RUN_ALL_TESTS();
}
