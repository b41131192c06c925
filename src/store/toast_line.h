#pragma once

#include "async/clock.h"
#include "model/toast.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// The one message that is shown for a few seconds; a later one takes its place and has its full time. Main thread.
class ToastLine : public QObject
{
    Q_OBJECT

public:
    explicit ToastLine(std::shared_ptr<Clock> clock);
    ~ToastLine() override;

    [[nodiscard]] const std::optional<Toast> &toast() const { return m_toast; }
    /// An empty message is none.
    void show(const QString &message, bool isError);

signals:
    void toastChanged();

private:
    static QCoro::Task<> hideLater(QPointer<ToastLine> self, std::shared_ptr<Clock> clock,
                                   std::chrono::milliseconds after, std::stop_token stop);

    std::shared_ptr<Clock> m_clock;
    std::optional<Toast> m_toast;
    std::stop_source m_hiding{std::nostopstate};
};

} // namespace pingwell
