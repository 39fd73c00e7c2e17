#pragma once

#include <gtest/gtest.h>

#include <QStringList>

namespace mintaro {

/// Fails the test for each warning, of the QML engine above all, that comes while the object lives.
class KeptWarnings
{
public:
    KeptWarnings()
    {
        lines().clear();
        m_before = qInstallMessageHandler(keep);
    }
    ~KeptWarnings()
    {
        qInstallMessageHandler(m_before);
        EXPECT_TRUE(lines().isEmpty()) << lines().join(u'\n').toStdString();
    }
    Q_DISABLE_COPY_MOVE(KeptWarnings)

private:
    static QStringList &lines()
    {
        static QStringList kept;
        return kept;
    }

    static void keep(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        // The offscreen platform has no windows to speak of.
        if (type != QtDebugMsg && type != QtInfoMsg && !text.contains(QLatin1String("This plugin does not support")))
            lines().append(text);
    }

    QtMessageHandler m_before = nullptr;
};

} // namespace mintaro
