// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/RegionOfInterest.h"

#include "program/Words.h"

#include <algorithm>

namespace zqviewer {

using namespace featurebrowser;

namespace {

constexpr int withChecks = 1;

/// The point of the record's grid at or below the value.
std::int64_t floorToGrid(const FeatureItem& item, std::int64_t value)
{
    const std::int64_t step = std::max<std::int64_t>(item.intInc, 1);
    const std::int64_t clamped = std::clamp(value, item.intMin, std::max(item.intMin, item.intMax));
    return clamped - (clamped - item.intMin) % step;
}

} // namespace

struct RegionOfInterest::Axis {
    const char* offset;
    const char* size;
};

namespace {

constexpr const char* width = "Width";
constexpr const char* height = "Height";

} // namespace

std::shared_ptr<FeatureItem> RegionOfInterest::read(const char* name)
{
    auto item = m_camera.repository().GetFeature(name);
    if (item) {
        m_camera.repository().ReadFeature(item);
    }
    return item;
}

std::int64_t RegionOfInterest::valueOf(const char* name)
{
    long value = 0;
    m_camera.device().GetIntegerValue(name, &value);
    return value;
}

bool RegionOfInterest::isOfSize(const QSize& image)
{
    return valueOf(width) == image.width() && valueOf(height) == image.height();
}

QString RegionOfInterest::writeValue(const char* name, std::int64_t value)
{
    if (valueOf(name) == value) {
        return {};
    }
    const int status
        = m_camera.device().SetIntegerValue(name, static_cast<long>(value), withChecks);
    return status == STATUS_OK ? QString()
                               : Words::tr("%1 cannot be set: %2")
                                     .arg(QString::fromLatin1(name), m_camera.errorText(status));
}

QString RegionOfInterest::write(const Axis& axis, std::int64_t first, std::int64_t size)
{
    const auto sizeItem = read(axis.size);
    if (!sizeItem) {
        return Words::tr("The camera has no %1.").arg(QString::fromLatin1(axis.size));
    }
    const std::int64_t present = valueOf(axis.size);
    const bool shrinks = size <= present;
    QString problem;
    const auto writeSize = [&] {
        const auto item = read(axis.size); // its limit moves with the offset
        const std::int64_t grid = floorToGrid(*item, size);
        const std::int64_t larger = floorToGrid(*item, size + std::max(1U, item->intInc) - 1);
        return writeValue(axis.size, std::max(grid, larger));
    };
    const auto writeOffset = [&] {
        const auto item = read(axis.offset);
        return item ? writeValue(axis.offset, floorToGrid(*item, first)) : QString();
    };
    problem = shrinks ? writeSize() : writeOffset();
    return problem.isEmpty() ? (shrinks ? writeOffset() : writeSize()) : problem;
}

QString RegionOfInterest::select(const QRect& pixels)
{
    const std::int64_t left = valueOf("OffsetX") + pixels.left();
    const std::int64_t top = valueOf("OffsetY") + pixels.top();
    const auto offsetX = read("OffsetX");
    const auto offsetY = read("OffsetY");
    // Where the offset moves down to its grid, the size has to reach as far as before.
    const auto lost = [](const auto& item, std::int64_t value) {
        return item ? (value - item->intMin) % std::max<std::int64_t>(item->intInc, 1) : 0;
    };
    const QString problem = write({ "OffsetX", width }, left, pixels.width() + lost(offsetX, left));
    return problem.isEmpty()
        ? write({ "OffsetY", height }, top, pixels.height() + lost(offsetY, top))
        : problem;
}

QString RegionOfInterest::selectAll()
{
    for (const Axis& axis : { Axis { "OffsetX", width }, Axis { "OffsetY", height } }) {
        const auto offset = read(axis.offset);
        QString problem = offset ? writeValue(axis.offset, offset->intMin) : QString();
        if (const auto size = read(axis.size); size && problem.isEmpty()) {
            problem = writeValue(axis.size, floorToGrid(*size, size->intMax));
        }
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    return {};
}

QString RegionOfInterest::words()
{
    return Words::tr("%1 \u00D7 %2 at (%3, %4)")
        .arg(QString::number(valueOf(width)), QString::number(valueOf(height)),
            QString::number(valueOf("OffsetX")), QString::number(valueOf("OffsetY")));
}

} // namespace zqviewer
