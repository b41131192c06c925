#pragma once

#include <QObject>

namespace pingwell {

/// The desktop's preferences for how programs look. Main thread.
class Appearance : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ isMotionReduced NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isDark() const = 0;
    [[nodiscard]] virtual bool isMotionReduced() const = 0;

signals:
    void changed();
};

} // namespace pingwell
