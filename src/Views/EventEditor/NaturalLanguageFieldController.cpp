#include "Views/EventEditor/NaturalLanguageFieldController.h"

namespace mintaro {

namespace {

/// Nobody types a longer sentence; what was pasted must not hold up the next key.
constexpr qsizetype kLongestSentence = 1000;

} // namespace

void NaturalLanguageFieldController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_parser.emplace(appState->environment());
    m_dateFormat = DateFormatter::withTemplate(QStringLiteral("MMMdjmm"), appState->environment().locale());
    preview();
}

void NaturalLanguageFieldController::setText(const QString &text)
{
    // What the user typed comes back through the property that it is bound to, and stays the user's.
    if (text == m_text)
        return;
    m_settledText = text;
    m_isLoaded = true;
    edit(text);
}

void NaturalLanguageFieldController::edit(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged();
    preview();
}

void NaturalLanguageFieldController::commit()
{
    if (m_text == m_settledText)
        return;
    const std::optional<ParsedEvent> before = parse(std::exchange(m_settledText, m_text));
    const bool wasLoaded = std::exchange(m_isLoaded, false);
    std::optional<ParsedEvent> event = parse(m_text);
    if (!event || !event->startDate)
        return;
    if (before && before->startDate == event->startDate && before->endDate == event->endDate) {
        // A date that stood in a loaded title is not the user's: mending the title must not move the event.
        if (wasLoaded)
            return;
        // One that was handed on before may have been changed since.
        event->startDate.reset();
        event->endDate.reset();
    }
    Q_EMIT parsed(*event);
}

QString NaturalLanguageFieldController::previewDate() const
{
    return hasPreview() ? m_dateFormat->string(*m_parsedPreview->startDate, m_appState->environment().timeZone())
                        : QString();
}

QString NaturalLanguageFieldController::previewLocation() const
{
    return hasPreview() ? m_parsedPreview->location.value_or(QString()) : QString();
}

void NaturalLanguageFieldController::preview()
{
    std::optional<ParsedEvent> event = parse(m_text);
    if (event == m_parsedPreview)
        return;
    m_parsedPreview = std::move(event);
    Q_EMIT previewChanged();
}

std::optional<ParsedEvent> NaturalLanguageFieldController::parse(const QString &text) const
{
    return m_parser && text.size() <= kLongestSentence ? m_parser->parse(text) : std::nullopt;
}

} // namespace mintaro
