#include "windows/window_frame.h"

#include <QStringList>

#include <array>

namespace pingwell {

QString windowFrameText(const QRect &frame)
{
    return QStringLiteral("%1 %2 %3 %4").arg(frame.x()).arg(frame.y()).arg(frame.width()).arg(frame.height());
}

std::optional<QRect> windowFrameFromText(const QString &text)
{
    const QStringList words = text.split(QChar(u' '));
    if (words.size() != 4)
        return std::nullopt;
    std::array<int, 4> numbers{};
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        bool isNumber = false;
        // Far beyond any screen, and small enough to add without overflow.
        constexpr int limit = 1'000'000;
        numbers[index] = words.at(qsizetype(index)).toInt(&isNumber);
        if (!isNumber || numbers[index] > limit || numbers[index] < -limit)
            return std::nullopt;
    }
    const QRect frame(numbers[0], numbers[1], numbers[2], numbers[3]);
    return frame.isEmpty() ? std::nullopt : std::optional(frame);
}

QRect fittedWindowFrame(QRect frame, const QRect &available)
{
    frame.setSize(frame.size().boundedTo(available.size()));
    if (frame.right() > available.right())
        frame.moveRight(available.right());
    if (frame.bottom() > available.bottom())
        frame.moveBottom(available.bottom());
    if (frame.left() < available.left())
        frame.moveLeft(available.left());
    if (frame.top() < available.top())
        frame.moveTop(available.top());
    return frame;
}

} // namespace pingwell
