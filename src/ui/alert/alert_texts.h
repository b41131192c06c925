#pragma once

#include "model/alert.h"

#include <QMetaType>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// The texts of an alert where there is room for all of each, line breaks included: cleaned for display, and cut only
/// where layout would become slow.
struct AlertTexts
{
    Q_GADGET
    QML_VALUE_TYPE(alertTexts)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString body MEMBER body FINAL)
    Q_PROPERTY(QString answer MEMBER answer FINAL)
    Q_PROPERTY(QString outcome MEMBER outcome FINAL)
    Q_PROPERTY(bool isCut MEMBER isCut FINAL)

public:
    /// Never empty.
    QString title;
    QString body;
    /// Empty while there is none.
    QString answer;
    /// What became of a timed-out ask, in one sentence; else empty.
    QString outcome;
    /// The end of at least one of them was left out.
    bool isCut = false;

    friend bool operator==(const AlertTexts &, const AlertTexts &) = default;
};

/// Those of `alert`, each up to `maximumLength` units; `outcome` is the store's sentence about it.
[[nodiscard]] AlertTexts alertTexts(const Alert &alert, const QString &outcome, qsizetype maximumLength);

/// An answer's words for display, `shown`; where nothing of them can be seen, what its choice is called.
[[nodiscard]] QString answerName(const QString &shown, const Alert &alert);

/// A title's words for display, `shown`, or what stands in for them.
[[nodiscard]] QString titleName(const QString &shown);

} // namespace pingwell
