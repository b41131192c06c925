#include "api/json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

namespace pingwell {

namespace {

struct ToQtJSON
{
    QJsonValue operator()(std::nullptr_t) const { return QJsonValue(QJsonValue::Null); }
    QJsonValue operator()(const QString &text) const { return QJsonValue(text); }
    QJsonValue operator()(std::int64_t integer) const { return QJsonValue(qint64{integer}); }
    QJsonValue operator()(bool flag) const { return QJsonValue(flag); }
};

} // namespace

QByteArray JSON::encoded() const
{
    // Qt writes only whole documents, so the value is written as the one element of an array and the brackets are
    // removed.
    const QByteArray list = QJsonDocument(QJsonArray{std::visit(ToQtJSON{}, m_value)}).toJson(QJsonDocument::Compact);
    return list.sliced(1, list.size() - 2);
}

QByteArray encoded(const JSONObject &object)
{
    QByteArray text = "{";
    for (auto entry = object.cbegin(); entry != object.cend(); ++entry) {
        if (entry != object.cbegin())
            text += ',';
        text += JSON(entry.key()).encoded() + ':' + entry.value().encoded();
    }
    return text + '}';
}

} // namespace pingwell
