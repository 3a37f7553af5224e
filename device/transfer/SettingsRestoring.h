// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "capture/SettingsReading.h"
#include "capture/SettingsTask.h"
#include "transfer/RestoreOrder.h"

#include "featurebrowser/ZQSettings.h"

#include <chrono>
#include <optional>

namespace zqcameralib {

/// Reads what the lines name, writes what differs in rounds as long as something is taken, reads
/// all lines back, and begins again where that shows that more can be had.
class __attribute__((visibility("hidden"))) ZQSettingsRestoring::Impl : public SettingsTask {
public:
    Impl(ZQCamera& camera, const ZQSettings& settings, const Options& options);
    ~Impl() override { SettingsTask::cancel(); }

    ZQCameraTask::Progress progress() const override;
    /// Writes no more, but reads back what was written; at once when called again.
    void stop();
    const ZQRestoreReport& report() const { return m_report; }
    const ZQSettings& before() const { return m_before; }

private:
    using Clock = std::chrono::steady_clock;
    enum class Phase { Begin, Read, Order, Write, Check };

    /// A line on its way.
    struct Goal {
        LineTarget target;
        std::optional<Result<std::string>> before;
        std::optional<Result<std::string>> now; ///< none when it may have changed since
        Status refusal; ///< of the last try
        int writes = 0; ///< that the camera took
        std::uint64_t tried = 0; ///< number of writes when it was tried last
        bool isLocked = false;
        bool isOfTable = false; ///< is read when it is written, and not before
        bool isSettled = false; ///< the camera keeps making the same of it
    };

    Step step() override;
    void finish() override;
    Step begin();
    void resolve();
    void findTables();
    RestoreOrder::Features settingsToKeep();
    void warn();
    Step read();
    void keepBefore(std::vector<ZQSettingsLine> lines);
    void keepBefore(const Goal& goal);
    Step planOrder();
    Step order();
    Step write();
    void beginRound();
    void beginCheck();
    void writeGoal(Goal& goal);
    Status send(const Goal& goal);
    void noteWritten(const Goal& written);
    Step check();
    Step endOfRound();
    bool checkTime();

    const ZQSettingsLine& lineOf(const Goal& goal) const;
    bool isHeld(const Goal& goal, const std::optional<Result<std::string>>& value) const;
    bool isRefused(const Goal& goal) const;
    bool isWorthTrying(const Goal& goal) const;
    std::vector<LineTarget> targets(bool withTables) const;
    RestoreOrder::Features features(bool onlyToBeWritten) const;
    void conclude(const Goal& goal, ZQRestoredLine& line) const;
    void concludeUnread(const Goal& goal, ZQRestoredLine& line) const;

    ZQSettings m_settings;
    Options m_options;
    ZQRestoreReport m_report;
    ZQSettings m_before;
    Phase m_phase = Phase::Begin;
    std::vector<Goal> m_goals;
    std::optional<SettingsReading> m_reading;
    std::optional<RestoreOrder> m_order;
    std::optional<RegisterPort::Pass> m_pass; ///< of a round of writing
    std::vector<std::size_t> m_queue; ///< goals, in the order of writing
    std::size_t m_next = 0; ///< in the queue
    std::uint64_t m_writes = 0; ///< that the camera took
    std::uint64_t m_writesAtRound = 0;
    int m_passes = 0;
    std::optional<Clock::time_point> m_end;
    bool m_isStopped = false; ///< only reads back
    std::string m_stopReason; ///< empty when it was cancelled
};

} // namespace zqcameralib
