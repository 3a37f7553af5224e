// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "ZQCamera.h"
#include "ZQCameraTask.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Settings that travel: a camera's settings as a value and as text, read from a camera, written to
/// one, compared. docs/settings.md shows the texts.

namespace zqcameralib {

/// Where a selector stands: "GainSelector" at "Red".
struct ZQSelectorState {
    std::string name;
    std::string value;
};

/// The value of one feature, where selectors choose an instance of it of that one.
struct ZQ_EXPORT ZQSettingsLine {
    std::string name; ///< of the feature
    std::vector<ZQSelectorState> selectors; ///< what it is selected by, outermost first
    /// As FeatureItem::valueText, but enumerations and booleans by the name of the entry ("Mono8",
    /// "True"). The same in every locale.
    std::string value;
    std::string unit; ///< as the description gives it; empty where it gives none
    /// Where it stands in the text that it was parsed from, counted from 1; 0 when it was not.
    std::size_t number = 0;

    /// "Width", "Gain[GainSelector=Red]": names the line among those of a ZQSettings.
    std::string label() const;
};

/// Whose settings they are, as far as known; empty where not.
struct ZQSettingsHeader {
    std::string vendor;
    std::string model;
    std::string serialNumber;
    std::string firmware;
    std::string descriptionVersion; ///< "1.0.2"
    std::string descriptionChecksum; ///< SHA-256 of ZQCamera::description(), in hexadecimal digits
    std::string date; ///< ISO 8601, UTC
};

/// A feature that was not saved, and why: one line.
struct ZQSettingsLeftOut {
    std::string label;
    std::string reason;
};

/// One difference between two settings. A value is missing where only the other one has the line.
struct ZQ_EXPORT ZQSettingsDifference {
    std::optional<ZQSettingsLine> first;
    std::optional<ZQSettingsLine> second;

    const std::string& name() const;
    std::string label() const;
    /// "Gain[GainSelector=Red]: 1.5 [dB] | 3 [dB]"; "(none)" for a value that is missing.
    std::string text() const;
};

/// A camera's settings, or some of them: a value that is copied, compared, parsed and written
/// without any camera. Any thread, one at a time for each object; nothing throws.
class ZQ_EXPORT ZQSettings {
public:
    /// Reads the text of a settings file: the layout of toText(), or the persistence layout of
    /// other tools. UTF-8 with or without a byte-order mark, lines ended by LF or CR LF. A text
    /// that is damaged anywhere gives false and leaves `settings` alone; `error` then says in one
    /// line what is wrong with which line: "line 7: is not UTF-8 text".
    static bool Parse(const std::string& text, ZQSettings& settings, std::string& error);
    /// Parses a file, of at most 64 MiB. `error` begins with the path.
    static bool ReadFile(const std::string& path, ZQSettings& settings, std::string& error);
    /// Writes a text as a file, whole or not at all. False and one line in `error` on failure.
    static bool WriteFile(const std::string& path, const std::string& text, std::string& error);

    /// UTF-8 text for people and version control: one feature a line, always in the same order.
    std::string toText() const;
    /// The persistence layout of other tools: tab-separated lines of selector positions and values.
    std::string toPersistenceText() const;

    const ZQSettingsHeader& header() const { return m_header; }
    void setHeader(ZQSettingsHeader header) { m_header = std::move(header); }
    const std::vector<ZQSettingsLine>& lines() const& { return m_lines; }
    std::vector<ZQSettingsLine> lines() && { return std::move(m_lines); }
    /// The line of that label; null when there is none. Valid until the settings are changed.
    const ZQSettingsLine* find(const std::string& label) const;
    /// What a saving has left out. Stands in the text as comments, which are not parsed.
    const std::vector<ZQSettingsLeftOut>& leftOut() const { return m_leftOut; }
    /// Whether each line tells the positions of all selectors that stood in the text before it, as
    /// the persistence layout does, and not only of those that select it. Which these are shows
    /// with a camera.
    bool hasAllPositions() const { return m_hasAllPositions; }

    /// Replaces the line of the same label, or adds it at the end.
    void put(ZQSettingsLine line);
    /// Only the lines of these labels, for restoring or putting chosen ones.
    ZQSettings only(const std::vector<std::string>& labels) const;
    /// Only the differences, in the order of `first`, then of `second`. Numbers are equal when
    /// their values are, everything else when the texts are.
    static std::vector<ZQSettingsDifference> Compare(
        const ZQSettings& first, const ZQSettings& second);

    class Access;

private:
    friend class Access;

    ZQSettingsHeader m_header;
    std::vector<ZQSettingsLine> m_lines;
    std::vector<ZQSettingsLeftOut> m_leftOut;
    bool m_hasAllPositions = false;
};

/// Reads the settings of a camera: every feature that the description marks as Streamable or, when
/// it marks none, every one that can be written, but commands, selectors, and addresses of the
/// transport layer. Selected features are read at each available entry of their selectors; integer
/// selectors at up to 256 positions, and one feature at up to 4096. What is not saved is named with
/// the reason (ZQSettings::leftOut).
///
/// Its progress counts settings. It moves selectors, and puts them back also when it fails, is
/// cancelled or destroyed. Nothing else may be done with the camera between its calls of poll():
/// that would find selectors moved.
class ZQ_EXPORT ZQSettingsSaving : public ZQCameraTask {
public:
    class Impl;

    /// `camera` has to outlive this.
    explicit ZQSettingsSaving(ZQCamera& camera);
    /// Reads what `lines` name, each at its selectors' positions, whether Streamable or not; for
    /// comparing a file with the camera.
    ZQSettingsSaving(ZQCamera& camera, const ZQSettings& lines);
    ~ZQSettingsSaving() override;

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override;
    /// What was read, once, when it is Done; empty otherwise.
    ZQSettings takeSettings();

private:
    std::unique_ptr<Impl> m_impl;
};

/// What became of one line of the settings at a restoring.
struct ZQRestoredLine {
    enum class Outcome {
        Restored, ///< the camera holds the value now, and did not before
        AlreadySo, ///< the camera held the value before
        Adjusted, ///< the camera took the value and holds another one
        Refused, ///< `reason` says why
        UnknownHere, ///< this camera has no such feature, selector or entry
        WouldBeWritten, ///< of a dry run: the camera holds another value
        NotKnown ///< not reached, or not read again, before the end of an interrupted restoring
    };

    ZQSettingsLine line; ///< as it was asked for
    Outcome outcome = Outcome::NotKnown;
    std::string before; ///< value before the restoring; empty when it is not known
    std::string now; ///< value that was read last; empty when it is not known
    std::string reason; ///< for Refused, UnknownHere and NotKnown, one line
};

/// What a restoring has done.
struct ZQ_EXPORT ZQRestoreReport {
    std::vector<ZQRestoredLine> lines; ///< in the order of the settings
    std::vector<std::string> warnings; ///< as for another model; one line each
    std::string error; ///< why it was interrupted; empty when it was not
    bool isDryRun = false;

    std::size_t count(ZQRestoredLine::Outcome outcome) const;
    /// For a program: 0 all lines hold, or would be written; 1 some do not; 2 interrupted.
    int exitStatus() const;
    /// For a user: a summary, then every line that does not hold, or would be written; with `all`,
    /// every line.
    std::string toText(bool all = false) const;
};

/// Writes settings to a camera, each line at its selectors' positions, in an order that follows
/// from what depends on what; what the camera takes only after others is tried again. Writes
/// nothing that already holds. At the end every line is read back.
///
/// Done also when lines were refused: report() says which. Failed when it was interrupted: the
/// camera was lost, or the time was over. Selectors are put back as by ZQSettingsSaving, unless a
/// line is about their position; nothing else may be done with the camera between its calls of
/// poll(). Afterwards the application loads its repository again (ZQCameraRepository::Load). What
/// the acquisition locks is refused while it runs. A camera opened for reading only fails at once.
class ZQ_EXPORT ZQSettingsRestoring : public ZQCameraTask {
public:
    class Impl;

    struct Options {
        /// Writes no value, and says what would be written. Selectors are moved and put back.
        bool isDryRun = false;
        /// Ends it after so long; 0: never.
        std::chrono::milliseconds limit { 0 };
    };

    /// `camera` has to outlive this.
    ZQSettingsRestoring(ZQCamera& camera, const ZQSettings& settings);
    ZQSettingsRestoring(ZQCamera& camera, const ZQSettings& settings, const Options& options);
    ~ZQSettingsRestoring() override;

    State poll() override;
    Progress progress() const override;
    /// Writes no more, but reads back what was written: poll() goes on until it is Cancelled.
    /// Called again, or destroyed, it ends at once.
    void cancel() override;
    std::string error() const override;
    /// Complete when it is not Running any more; valid as long as this.
    const ZQRestoreReport& report() const;
    /// What the camera held before of all that the lines name and the description says to depend on
    /// them: restored, it takes the restoring back. Empty as long as nothing was written.
    const ZQSettings& before() const;

private:
    std::unique_ptr<Impl> m_impl;
};

/// Works on the sets of settings that a camera keeps (UserSetSelector, UserSetLoad, UserSetSave).
/// To ask the user before is the application's part. UserSetSelector is put back.
class ZQ_EXPORT ZQUserSet : public ZQCameraTask {
public:
    class Impl;

    enum class Action {
        Load, ///< the set replaces the settings; the application loads its repository again
        Save, ///< the settings replace the set
        /// Saves the settings beside the caller, loads the set, reads what it holds, and restores
        /// the settings. Meanwhile the camera works with those of the set; what it does not take
        /// back is in report().
        LookInto
    };

    /// The sets that can be chosen now; empty where the camera has none.
    static std::vector<std::string> Names(ZQCamera& camera);

    /// `camera` has to outlive this.
    ZQUserSet(ZQCamera& camera, const std::string& set, Action action);
    ~ZQUserSet() override;

    State poll() override;
    Progress progress() const override;
    /// A camera that has begun to load or save goes on. LookInto restores the settings first,
    /// which waits for the camera as long as that takes, at most 30 s.
    void cancel() override;
    std::string error() const override;
    /// LookInto: what the set holds, and the settings now, to compare them.
    const ZQSettings& contents() const;
    const ZQSettings& now() const;
    /// LookInto: how putting the settings back went.
    const ZQRestoreReport& report() const;

private:
    std::unique_ptr<Impl> m_impl;
};

} // namespace zqcameralib
