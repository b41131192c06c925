#pragma once

#include <QTest>

namespace pingwell {

/// While a test goes through a list: where it fails, the row at which it does is told.
class InRow
{
public:
    explicit InRow(QByteArray name)
        : m_name(std::move(name))
    {
    }
    ~InRow()
    {
        if (QTest::currentTestFailed())
            qInfo("In the row \"%s\".", m_name.constData());
    }
    Q_DISABLE_COPY_MOVE(InRow)

private:
    QByteArray m_name;
};

} // namespace pingwell
