#include "model/TypedName.h"

#include "model/RowFilter.h"

namespace featurebrowser {

namespace {

/// Longer than the interval of the desktop: a blank that comes late would press a button.
constexpr qint64 pause = 1500; // ms

} // namespace

bool TypedName::isCollecting() const
{
    return !m_text.isEmpty() && m_sinceLast.isValid() && m_sinceLast.elapsed() < pause;
}

void TypedName::add(const QString& typed)
{
    if (!isCollecting()) {
        m_text.clear();
    }
    m_text += typed;
    m_sinceLast.start();
}

bool TypedName::goesOn() const
{
    return wanted().size() == 1;
}

QString TypedName::wanted() const
{
    const QString plain = plainName(m_text);
    const bool isRepeated = !plain.isEmpty() && plain.count(plain.at(0)) == plain.size();
    return isRepeated ? plain.left(1) : plain;
}

bool TypedName::fits(const QString& name) const
{
    return plainName(name).startsWith(wanted());
}

} // namespace featurebrowser
