// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "look/Glyphs.h"

#include <QToolButton>

namespace featurebrowser {

/// Flat button with a sign in the palette's text colour. `words` are its tool tip and its name for
/// screen readers.
class GlyphButton : public QToolButton {
    Q_OBJECT

public:
    GlyphButton(Glyph glyph, const QString& words, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Glyph m_glyph;
};

} // namespace featurebrowser
