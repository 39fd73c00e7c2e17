#include "Platform/AppKit/PointerScreen.h"

#include <QCursor>
#include <QGuiApplication>

namespace mintaro {

QScreen *screenWithPointer()
{
    QScreen *const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen ? screen : QGuiApplication::primaryScreen();
}

} // namespace mintaro
