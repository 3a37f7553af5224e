// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What one edit costs from the Enter key to the refreshed tree, on the simulated camera.
//
//   writes, accesses   register accesses of the edit; to reach for a plain integer: one write and
//   at
//                      most 10 accesses in all
//   repeats            reads after the write beyond one per register; to reach: 0
//   idle_reads         reads by painting and half a second of idling; to reach: 0
//   edit/raw           time over one raw write and read of the same feature by Aravis itself

#include "RawDevice.h"
#include "camera/Camera.h"
#include "simulation/SimulatedCamera.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraRepository.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <QTreeView>

#include <chrono>
#include <cstdio>
#include <set>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using Clock = std::chrono::steady_clock;

/// An edit that is typed back and forth between two values.
struct Edit {
    const char* feature;
    std::array<const char*, 2> values;
    bool isChoice;
};

class Chain {
public:
    Chain()
        : camera(ZQCamera::OpenSimulated(m_error))
        , browser(camera.get(), nullptr)
        , raw(camera->impl().port().backend(), simulatedCameraDescription())
    {
        browser.GetCameraRepository()->Load();
        browser.LoadFeatureBrowser();
        browser.ShowStandalone(800, 800, {}, LEVEL_GURU);
        tree = browser.GetWidget()->findChild<QTreeView*>(QStringLiteral("featureTree"));
        tree->expandAll();
        QApplication::processEvents();
    }

    QModelIndex row(const char* name, const QModelIndex& parent = {}) const
    {
        const QAbstractItemModel& model = *tree->model();
        for (int i = 0; i < model.rowCount(parent); ++i) {
            const QModelIndex here = model.index(i, 0, parent);
            if (here.data(model.roleNames().key("name")).toByteArray() == name) {
                return here;
            }
            const QModelIndex inside = row(name, here);
            if (inside.isValid()) {
                return inside;
            }
        }
        return {};
    }

    /// Everything of the edit up to the key that commits it; returns the widget that gets that key.
    QWidget* prepare(const Edit& edit, const char* value) const
    {
        tree->setFocus();
        tree->setCurrentIndex(row(edit.feature).siblingAtColumn(1));
        QTest::keyClick(tree, Qt::Key_F2);
        if (edit.isChoice) {
            static_cast<void>(QTest::qWaitFor([] { return QApplication::activePopupWidget(); }));
        }
        QWidget* top = edit.isChoice ? QApplication::activePopupWidget() : nullptr;
        QWidget* field
            = top && top->focusWidget() ? top->focusWidget() : QApplication::focusWidget();
        if (!edit.isChoice) {
            QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        }
        QTest::keyClicks(field, QString::fromUtf8(value));
        return field;
    }

private:
    std::string m_error;

public:
    std::unique_ptr<ZQCamera> camera;
    ZQFeatureBrowser browser;
    RawDevice raw;
    QTreeView* tree = nullptr;
};

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double rawWriteAndRead(Chain& chain, const Edit& edit, const char* value)
{
    auto* node = ARV_GC_FEATURE_NODE(arv_gc_get_node(chain.raw.nodeMap(), edit.feature));
    const auto start = Clock::now();
    arv_gc_feature_node_set_value_from_string(node, value, nullptr);
    arv_gc_feature_node_get_value_as_string(node, nullptr);
    return secondsSince(start);
}

std::uint64_t idleReads(Chain& chain)
{
    const std::uint64_t before = chain.camera->impl().port().reads();
    chain.tree->viewport()->repaint();
    QTest::qWait(500);
    return chain.camera->impl().port().reads() - before;
}

void edit(benchmark::State& state, const Edit& what)
{
    Chain chain;
    RegisterPort& port = chain.camera->impl().port();
    double editSeconds = 0;
    double rawSeconds = 0;
    std::uint64_t writes = 0;
    std::uint64_t reads = 0;
    std::size_t repeats = 0;
    std::size_t turn = 0;
    while (state.KeepRunning()) {
        const char* value = what.values[++turn % 2];
        QWidget* field = chain.prepare(what, value);
        Registers readAfterWrite;
        port.setFaultHook([&](std::uint64_t address, std::size_t size, bool isWrite) {
            if (isWrite) {
                readAfterWrite.clear();
            } else {
                readAfterWrite.push_back({ address, size });
            }
            return false;
        });
        const std::uint64_t writesBefore = port.writes();
        const std::uint64_t readsBefore = port.reads();
        const auto start = Clock::now();
        QTest::keyClick(field, Qt::Key_Return);
        QApplication::processEvents();
        state.SetIterationTime(secondsSince(start));
        editSeconds += secondsSince(start);
        port.setFaultHook(nullptr);
        writes = port.writes() - writesBefore;
        reads = port.reads() - readsBefore;
        repeats = readAfterWrite.size()
            - std::set<Register>(readAfterWrite.begin(), readAfterWrite.end()).size();
        rawSeconds += rawWriteAndRead(chain, what, value);
    }
    state.counters["writes"] = double(writes);
    state.counters["accesses"] = double(writes + reads);
    state.counters["repeats"] = double(repeats);
    state.counters["idle_reads"] = double(idleReads(chain));
    state.counters["edit/raw"] = editSeconds / rawSeconds;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // The trace of the browser is not what is read here.
    if (!std::freopen("/dev/null", "w", stderr)) {
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    const std::array edits { Edit { "DeviceUserTag", { "17", "18" }, false },
        Edit { "Width", { "640", "1024" }, false }, Edit { "BlackLevel", { "1.5", "2.5" }, false },
        Edit { "CounterEventSource", { "Off", "MissedTrigger" }, true },
        Edit { "GainSelector", { "Red", "Blue" }, true } };
    for (const Edit& what : edits) {
        benchmark::RegisterBenchmark((std::string("edit/") + what.feature).c_str(), edit, what)
            ->UseManualTime()
            ->Iterations(200)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
