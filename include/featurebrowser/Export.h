// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

/// What these headers say of threads:
///
/// - "Any thread": may be called on every thread at every time, also on several at once.
/// - "One thread at a time": on any thread, as long as no two calls overlap. What belongs together
///   (a camera, its device, its repository, their tasks) counts as one; the thread that calls them
///   is said to drive the camera.
/// - "The user-interface thread": the one of the QApplication. An application that shows a browser
///   drives its camera there, since the browser does.
///
/// A reference or pointer that is handed out is used under the same rule as what handed it out, and
/// is valid as long as that, unless more is said.

/// Marks what a shared library shows to its users; everything else is hidden (-fvisibility=hidden).
/// Interfaces that cross library borders carry it too, so that all libraries share one typeinfo.
#define ZQ_EXPORT __attribute__((visibility("default")))
