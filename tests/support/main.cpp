#include "Platform/Foundation/Translations.h"

#include <gmock/gmock.h>

#include <QGuiApplication>

int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    const auto texts = mintaro::installTranslations(mintaro::Locale());
    return RUN_ALL_TESTS();
}
