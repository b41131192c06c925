#include "ui/alert/alert_texts.h"

#include "text/choice_labels.h"
#include "text/display_text.h"

namespace pingwell {

QString answerName(const QString &shown, const Alert &alert)
{
    if (!shown.isEmpty() || !alert.answer)
        return shown;
    const qsizetype choice = alert.actions.indexOf(*alert.answer);
    return choice < 0 ? QStringLiteral("(no text)") : choiceLabels(alert.actions).at(choice);
}

QString titleName(const QString &shown)
{
    return shown.isEmpty() ? QStringLiteral("(no title)") : shown;
}

AlertTexts alertTexts(const Alert &alert, const QString &outcome, qsizetype maximumLength)
{
    const DisplayText title = displayText(alert.title, maximumLength);
    const DisplayText body = displayText(alert.body, maximumLength);
    const DisplayText answer = displayText(alert.answer.value_or(QString()), maximumLength);
    const DisplayText sentence = displayText(outcome, maximumLength);

    AlertTexts texts;
    texts.title = titleName(title.text);
    texts.body = body.text;
    texts.answer = answerName(isolated(answer.text), alert);
    texts.outcome = sentence.text;
    texts.isCut = title.isCut || body.isCut || answer.isCut || sentence.isCut;
    return texts;
}

} // namespace pingwell
