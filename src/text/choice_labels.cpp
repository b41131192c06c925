#include "text/choice_labels.h"

#include "text/display_text.h"

#include <QHash>

#include <algorithm>

namespace pingwell {

namespace {

QString numbered(qsizetype position)
{
    return QStringLiteral("Choice ") + QString::number(position + 1);
}

QString withNumber(const QString &label, qsizetype position)
{
    return isolated(label) + QStringLiteral(" (choice %1)").arg(position + 1);
}

QHash<QString, int> looksOf(const QStringList &labels)
{
    QHash<QString, int> looks;
    for (const QString &label : labels)
        ++looks[seenOf(label)];
    return looks;
}

} // namespace

QStringList choiceLabels(const QStringList &actions)
{
    // All labels together stay within what text layout can handle, however many there are.
    const qsizetype longest = std::max(displayLineLength, fullDisplayLength / std::max<qsizetype>(actions.size(), 1));
    QStringList labels;
    labels.reserve(actions.size());
    for (const QString &action : actions) {
        const QString label = displayLine(action, longest);
        labels.append(label.isEmpty() ? numbered(labels.size()) : label);
    }
    const QHash<QString, int> looks = looksOf(labels);
    if (looks.size() == labels.size())
        return labels;
    QStringList told = labels;
    for (qsizetype position = 0; position < labels.size(); ++position) {
        if (looks.value(seenOf(labels.at(position))) > 1)
            told[position] = withNumber(labels.at(position), position);
    }
    if (looksOf(told).size() == told.size())
        return told;
    // One label equals another label with its number. With a number on every label, all of them differ.
    for (qsizetype position = 0; position < labels.size(); ++position)
        told[position] = withNumber(labels.at(position), position);
    return told;
}

} // namespace pingwell
