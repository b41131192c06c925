#include "linux/desktop_entries/desktop_entry.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace pingwell {

QString desktopEntryValue(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    text.replace(u'\n', QStringLiteral("\\n"));
    return text;
}

QString desktopEntryProgram(const QString &path)
{
    QString quoted;
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            quoted += u'\\';
        quoted += character;
        if (character == u'%')
            quoted += character;
    }
    return desktopEntryValue(u'"' + quoted + u'"');
}

std::optional<QString> writeDesktopEntry(const QString &file, const QStringList &lines)
{
    const QString folder = QFileInfo(file).path();
    if (!QDir().mkpath(folder))
        return QString(QStringLiteral("can't make the folder ") + folder);
    const QByteArray entry = (QStringLiteral("[Desktop Entry]\n") + lines.join(u'\n') + u'\n').toUtf8();
    QSaveFile writer(file);
    if (writer.open(QIODevice::WriteOnly) && writer.write(entry) == entry.size() && writer.commit())
        return std::nullopt;
    return writer.errorString();
}

} // namespace pingwell
