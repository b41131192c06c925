#pragma once

#include "model/alert.h"
#include "ui/alert/alert_texts.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace pingwell {

class AppStore;

/// No ask shows more choices than this.
inline constexpr qsizetype maximumDrawnChoices = 40;

/// What a screen shows of one alert: every text cleaned for display, and its state at one instant. The texts never go
/// back to the service; an answer is sent by `id`, with the exact words of `actions`.
struct AlertRow
{
    Q_GADGET
    QML_VALUE_TYPE(alertRow)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString app MEMBER app FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(pingwell::AlertTexts whole MEMBER whole FINAL)
    Q_PROPERTY(QString summary MEMBER summary FINAL)
    Q_PROPERTY(QString topic MEMBER topic FINAL)
    Q_PROPERTY(QString priority MEMBER priority FINAL)
    Q_PROPERTY(bool acceptsText MEMBER acceptsText FINAL)
    Q_PROPERTY(QStringList actions MEMBER actions FINAL)
    Q_PROPERTY(QStringList actionLabels MEMBER actionLabels FINAL)
    Q_PROPERTY(int furtherChoices MEMBER furtherChoices FINAL)
    Q_PROPERTY(QString placeholder MEMBER placeholder FINAL)
    Q_PROPERTY(double at MEMBER at FINAL)
    Q_PROPERTY(double expiresAt MEMBER expiresAt FINAL)
    Q_PROPERTY(bool read MEMBER read FINAL)
    Q_PROPERTY(QString state MEMBER state FINAL)
    Q_PROPERTY(QString answer MEMBER answer FINAL)
    Q_PROPERTY(QString outcome MEMBER outcome FINAL)
    Q_PROPERTY(bool canAnswer MEMBER canAnswer FINAL)

public:
    QString id;
    QString app;
    /// On one line each, shortened: the title and the body.
    QString title;
    QString summary;
    /// Where there is room for more than a line.
    AlertTexts whole;
    QString topic;
    /// "silent", "normal", "high" or "critical".
    QString priority;
    bool acceptsText = false;
    /// The answers offered, word for word, and how the first `maximumDrawnChoices` of them read.
    QStringList actions;
    QStringList actionLabels;
    /// How many more answers the ask offers, which are not kept.
    int furtherChoices = 0;
    QString placeholder;
    /// Milliseconds since 1970; positive infinity where there is no deadline.
    double at = 0;
    double expiresAt = 0;
    bool read = false;
    /// Empty for a notice, else "waiting", "answered" or "timedOut"; "gone" for an alert that exists no more.
    QString state;
    /// On one line each, shortened: the answer, and in one sentence what became of a timed-out ask.
    QString answer;
    QString outcome;
    /// The person may answer now.
    bool canAnswer = false;

    friend bool operator==(const AlertRow &, const AlertRow &) = default;
};

/// Everything that a row is made from: two equal ones give the same row.
struct AlertSnapshot
{
    Alert alert;
    /// As in `AlertRow`.
    QString state;
    QString outcome;
    bool canAnswer = false;

    friend bool operator==(const AlertSnapshot &, const AlertSnapshot &) = default;
};

/// How many choices the person is offered to press.
[[nodiscard]] qsizetype drawnChoices(const AlertSnapshot &snapshot);

/// `alert` as the store sees it now.
[[nodiscard]] AlertSnapshot snapshotOf(Alert alert, const AppStore &store);

/// A snapshot that many can hold for the price of one; compared by what it holds.
struct SharedAlertSnapshot
{
    std::shared_ptr<const AlertSnapshot> snapshot;

    friend bool operator==(const SharedAlertSnapshot &left, const SharedAlertSnapshot &right)
    {
        return left.snapshot == right.snapshot ||
               (left.snapshot && right.snapshot && *left.snapshot == *right.snapshot);
    }
};

/// What to show of it.
[[nodiscard]] AlertRow alertRow(const AlertSnapshot &snapshot);

} // namespace pingwell

// Small enough to lie in a variant itself, if it may be moved as bytes.
Q_DECLARE_TYPEINFO(pingwell::SharedAlertSnapshot, Q_RELOCATABLE_TYPE);
