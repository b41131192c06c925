#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

namespace pingwell {

// What a later start sends to the running program. It is checked by the sender and again by the receiver. It contains
// secrets and is never written to a log or a file.

/// The texts of the URLs that the program opens: with the scheme "pingwell", well-formed, at most 4 KiB long.
[[nodiscard]] QStringList acceptableTexts(const QList<QUrl> &urls);

/// The URLs in those texts that the program opens. The parser is tolerant, because some desktops decode a part of a URL
/// before they pass it on.
[[nodiscard]] QList<QUrl> acceptableURLs(const QStringList &texts);

/// The tokens from the environment with which the desktop lets a window come to the front, as platform data
/// (freedesktop.org Desktop Entry, D-Bus activation). To be read before there is a graphical application object, which
/// may remove them from the environment.
[[nodiscard]] QVariantMap platformDataOfThisStart();

/// The token in platform data that lets a window come to the front: the Wayland token, or X11's startup id; empty
/// without one.
[[nodiscard]] QByteArray activationTokenOf(const QVariantMap &platformData);

} // namespace pingwell
