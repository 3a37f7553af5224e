// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zqcameralib {
class ZQCamera;
}

/// Bytes that choose; behind the last one all are 0.
class Choices {
public:
    Choices(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_end(data + size)
    {
    }
    bool areOver() const { return m_data == m_end; }
    std::size_t next() { return areOver() ? 0 : *m_data++; }
    template <class List> std::string of(const List& list) { return list[next() % list.size()]; }

private:
    const std::uint8_t* m_data;
    const std::uint8_t* m_end;
};

/// The description of a camera whose nodes, references and texts are chosen: mostly absurd, but it
/// gets further than damaged text. Each node has so many references and texts of its own at most.
std::string composedDescription(Choices choices, std::size_t perNode = 5);
/// Whatever a browser does with a camera, on its first features.
void useEverything(zqcameralib::ZQCamera& camera);
