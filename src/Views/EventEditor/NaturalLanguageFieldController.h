#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"
#include "Services/NaturalLanguageParser.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The line that takes a title or a whole sentence: what the parser makes of it, and when that is handed on.
class NaturalLanguageFieldController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool hasPreview READ hasPreview NOTIFY previewChanged)
    Q_PROPERTY(QString previewDate READ previewDate NOTIFY previewChanged)
    Q_PROPERTY(QString previewLocation READ previewLocation NOTIFY previewChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    [[nodiscard]] const QString &text() const { return m_text; }
    /// A text that the user did not type: it is previewed, and never handed on.
    void setText(const QString &text);
    /// The line holds a date.
    [[nodiscard]] bool hasPreview() const { return m_parsedPreview && m_parsedPreview->startDate; }
    /// Its start in the locale's words; empty without a preview.
    [[nodiscard]] QString previewDate() const;
    /// Empty where the line names none.
    [[nodiscard]] QString previewLocation() const;

    /// What the user makes of the line, at each key.
    Q_INVOKABLE void edit(const QString &text);
    /// Hands on a date that the user typed since the text was set or last committed. Otherwise returns at once.
    Q_INVOKABLE void commit();

Q_SIGNALS:
    void textChanged();
    void previewChanged();
    void parsed(const mintaro::ParsedEvent &event);

private:
    void preview();
    [[nodiscard]] std::optional<ParsedEvent> parse(const QString &text) const;

    AppState *m_appState = nullptr;
    std::optional<NaturalLanguageParser> m_parser;
    std::optional<DateFormatter> m_dateFormat;
    QString m_text;
    /// The text as it was set or last committed.
    QString m_settledText;
    /// The settled text was set rather than committed.
    bool m_isLoaded = false;
    std::optional<ParsedEvent> m_parsedPreview;
};

} // namespace mintaro
