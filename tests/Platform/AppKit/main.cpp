#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
