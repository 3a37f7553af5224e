#pragma once

/// Marks what a shared library shows to its users; everything else is hidden (-fvisibility=hidden).
/// Interfaces that cross library borders carry it too, so that all libraries share one typeinfo.
#define ZQ_EXPORT __attribute__((visibility("default")))
