// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "model/TypedName.h"

#include "model/RowFilter.h"

#include <QApplication>

#include <algorithm>

namespace featurebrowser {

namespace {

/// Longer than most desktops want it: a blank that comes late would press a button.
qint64 pause() // ms
{
    return std::max(1500, QApplication::keyboardInputInterval());
}

} // namespace

bool TypedName::isCollecting() const
{
    return !m_text.isEmpty() && m_sinceLast.isValid() && m_sinceLast.elapsed() < pause();
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
