#pragma once

#include "desktop/appearance.h"
#include "store/app_store.h"
#include "text/display_text.h"
#include "text/time_format.h"

#include <QJSEngine>
#include <QObject>
#include <QQmlEngine>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What QML reads of the store.
struct AppStateForQml
{
    Q_GADGET
    QML_FOREIGN(pingwell::AppState)
    QML_ANONYMOUS
};

/// The store as QML knows it; views are given theirs.
struct AppStoreForQml
{
    Q_GADGET
    QML_FOREIGN(pingwell::AppStore)
    QML_NAMED_ELEMENT(AppStore)
    QML_UNCREATABLE("There is one store, handed in from outside.")
};

/// The desktop's wishes as QML knows them: those of the engine that asks (see `UiEngine`).
struct AppearanceForQml
{
    Q_GADGET
    QML_FOREIGN(pingwell::Appearance)
    QML_NAMED_ELEMENT(DesktopAppearance)
    QML_SINGLETON

public:
    static Appearance *create(QQmlEngine *engine, QJSEngine *scriptEngine);
};

/// Makes a message safe to show that may hold words of others, a server's refusal for one.
class ShownText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE QString line(const QString &raw) const { return displayLine(raw); }
};

/// The time texts for QML, with instants in milliseconds since 1970.
class TimeText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE QString countdownText(double seconds) const { return pingwell::countdownText(seconds); }
    Q_INVOKABLE QString shortAge(double at, double now) const
    {
        return pingwell::shortAge(instantFromMilliseconds(at), instantFromMilliseconds(now));
    }
    Q_INVOKABLE QString relativeAge(double at, double now) const
    {
        return pingwell::relativeAge(instantFromMilliseconds(at), instantFromMilliseconds(now));
    }
};

} // namespace pingwell
