// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace featurebrowser {

class RowEditor;
struct FeatureRow;

/// A new editor for the row's kind, with the row's value, owned by `parent`; null for kinds without
/// one. `sliderSteps`: positions of the slider of a float.
RowEditor* makeEditor(const FeatureRow& row, int sliderSteps, QWidget* parent);

} // namespace featurebrowser
