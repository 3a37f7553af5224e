// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

/// Declares QWidget for the headers that need no more of Qt. Where Qt was built in a namespace of
/// its own, QT_NAMESPACE names it: Qt's CMake targets and ours define it, and our pkg-config files.
#ifdef QT_NAMESPACE
#ifdef QT_INLINE_NAMESPACE
inline
#endif
    namespace QT_NAMESPACE {
class QWidget;
}
namespace featurebrowser {
using QT_NAMESPACE::QWidget;
}
#else
class QWidget;
#endif
