#include "Platform/AppKit/GeneralPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace mintaro {

void GeneralPasteboard::clearContents()
{
    QGuiApplication::clipboard()->clear();
}

void GeneralPasteboard::setString(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace mintaro
