// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formats/YuvLayout.h"

namespace featurebrowser {

const YuvLayout& yuvLayout(Layout layout)
{
    static constexpr YuvLayout yuyv = { 2, 4, { 0, 2 }, 1, 3 };
    static constexpr YuvLayout uyvy = { 2, 4, { 1, 3 }, 0, 2 };
    static constexpr YuvLayout yuv = { 1, 3, { 0 }, 1, 2 };
    static constexpr YuvLayout uyv = { 1, 3, { 1 }, 0, 2 };
    static constexpr YuvLayout uyyvyy = { 4, 6, { 1, 2, 4, 5 }, 0, 3 };
    static constexpr YuvLayout yyuyyv = { 4, 6, { 0, 1, 3, 4 }, 2, 5 };
    switch (layout) {
    case Layout::YUYV:
        return yuyv;
    case Layout::UYVY:
        return uyvy;
    case Layout::UYV:
        return uyv;
    case Layout::UYYVYY:
        return uyyvyy;
    case Layout::YYUYYV:
        return yyuyyv;
    default:
        return yuv;
    }
}

// ITU-R BT.601 and BT.709. PFNC's YUV and plain YCbCr use all 256 values with the colours of
// BT.601; YCbCr601 and YCbCr709 keep luma within 16 to 235 and colours within 16 to 240.
const YuvFactors& yuvFactors(Coding coding)
{
    static constexpr YuvFactors full601 = { 0, 65536, 91881, -22553, -46802, 116130 };
    static constexpr YuvFactors limited601 = { 16, 76309, 104597, -25675, -53279, 132201 };
    static constexpr YuvFactors limited709 = { 16, 76309, 117489, -13975, -34925, 138438 };
    switch (coding) {
    case Coding::Limited601:
        return limited601;
    case Coding::Limited709:
        return limited709;
    default:
        return full601;
    }
}

} // namespace featurebrowser
