// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/CameraFeatureBrowser.h"

#include "events/ValueWriter.h"
#include "row/NewRows.h"
#include "text/BrowserMessage.h"
#include "text/NumberInput.h"
#include "window/BrowserWindow.h"

#include <QPointer>

#include <zqqt/RefuseOtherQt.h>
#include <zqtranslations/LoadTranslations.h>

#include <algorithm>

namespace featurebrowser {

namespace {

std::vector<std::string> toVector(std::list<std::string> entries)
{
    return { std::make_move_iterator(entries.begin()), std::make_move_iterator(entries.end()) };
}

bool isPlainText(const FeatureRow& row)
{
    return row.kind == RowKind::Text || row.kind == RowKind::ReadOnlyText;
}

// A MAC address is a number to the camera and a text in its row.
EditValue asHeld(const FeatureRow& row, const EditValue& value)
{
    const auto* number = std::get_if<qint64>(&value);
    if (row.kind == RowKind::Mac && number != nullptr) {
        return convertToMACAddress(static_cast<long>(*number));
    }
    return value;
}

} // namespace

// The window is gone when the application's window that embedded it was destroyed first; all
// operations then do nothing.
class __attribute__((visibility("hidden"))) CameraFeatureBrowser::Impl {
public:
    QPointer<BrowserWindow> window;

    template <typename Use> void with(Use&& use) const
    {
        if (BrowserWindow* present = window.data()) {
            use(*present);
        }
    }
    template <typename Use> void withRow(const std::string& name, Use&& use) const
    {
        BrowserWindow* present = window.data();
        FeatureRow* row = present != nullptr ? present->model().find(name) : nullptr;
        if (row != nullptr) {
            use(*present, *row);
        }
    }
    void add(const std::string& category, std::unique_ptr<FeatureRow> row) const
    {
        with([&](BrowserWindow& present) { present.model().addFeature(category, std::move(row)); });
    }
    void resetValue(
        const std::string& name, const EditValue& value, const std::string& message) const
    {
        withRow(name, [&](BrowserWindow& present, FeatureRow& row) {
            if (auto reset = withEntered(row.value, asHeld(row, value))) {
                present.setValue(row, std::move(*reset), row.readOnly, true);
            }
            present.writer().showMessage(name, browserMessage(toText(message)));
        });
    }
    void show(Qt::WindowType type, IEventFeatureReceiver* receiver, int width, int height,
        const std::vector<int>& columns, const std::map<std::string, FEATURE_STATE>& states) const
    {
        with([&](BrowserWindow& present) {
            present.events().setReceiver(receiver);
            present.model().setStates(states);
            present.applySizes(width, height, columns);
            present.present(type);
        });
    }
};

CameraFeatureBrowser::CameraFeatureBrowser(QWidget* parent)
    : m_impl(std::make_unique<Impl>())
{
    zqqt::refuseOtherQt("ZQFeatureBrowserWidget");
    zqtranslations::load(
        QStringLiteral("zqfeaturebrowserwidget"), QStringLiteral(":/zqfeaturebrowserwidget"));
    m_impl->window = new BrowserWindow(parent);
}

CameraFeatureBrowser::~CameraFeatureBrowser()
{
    const std::unique_ptr<BrowserWindow> ended(m_impl->window.data());
}

void CameraFeatureBrowser::addCategory(std::string name, TYPE_LEVEL level)
{
    addSubCategory({}, std::move(name), level);
}

void CameraFeatureBrowser::addSubCategory(std::string parent, std::string name, TYPE_LEVEL level)
{
    m_impl->with([&](BrowserWindow& window) { window.model().addCategory(parent, name, level); });
}

void CameraFeatureBrowser::addIntFeature(std::string category, std::string name, long value,
    long min, long max, unsigned int inc, TYPE_LEVEL level, bool readOnly, bool flag,
    TYPE_SELECTOR selector, std::string selectorText)
{
    auto row = newRow(RowKind::Integer, std::move(name), level, readOnly, flag, selector,
        std::move(selectorText));
    row->value = IntegerValue { value, min, max, inc };
    m_impl->add(category, std::move(row));
}

void CameraFeatureBrowser::addDoubleFeature(std::string category, std::string name, double value,
    double min, double max, double inc, TYPE_LEVEL level, TYPE_SLIDER slider, bool readOnly,
    bool flag, TYPE_SELECTOR selector, std::string selectorText)
{
    auto row = newRow(
        RowKind::Float, std::move(name), level, readOnly, flag, selector, std::move(selectorText));
    row->value = FloatValue { value, min, max, inc };
    row->logarithmic = slider == SLIDER_LOGARITHMIC;
    m_impl->add(category, std::move(row));
}

void CameraFeatureBrowser::addStringFeature(std::string category, std::string name,
    std::string value, TYPE_LEVEL level, unsigned int maxLength, bool readOnly, bool flag,
    TYPE_ADDRESS address, TYPE_SELECTOR selector, std::string selectorText)
{
    const RowKind kind = address == ADDRESS_IPV4 ? RowKind::Ipv4
        : address == ADDRESS_MAC                 ? RowKind::Mac
                                                 : RowKind::Text;
    auto row
        = newRow(kind, std::move(name), level, readOnly, flag, selector, std::move(selectorText));
    row->value = TextValue { std::move(value), maxLength };
    m_impl->add(category, std::move(row));
}

void CameraFeatureBrowser::addEnumFeature(std::string category, std::string name, int index,
    std::list<std::string> entries, TYPE_LEVEL level, bool readOnly, bool isBoolean, bool flag,
    TYPE_SELECTOR selector, std::string selectorText)
{
    auto row = newRow(isBoolean ? RowKind::Boolean : RowKind::Enumeration, std::move(name), level,
        readOnly, flag, selector, std::move(selectorText));
    row->value = ChoiceValue { index, toVector(std::move(entries)) };
    m_impl->add(category, std::move(row));
}

void CameraFeatureBrowser::addCommandFeature(std::string category, std::string name,
    std::string text, TYPE_LEVEL level, bool readOnly, bool flag, TYPE_SELECTOR selector,
    std::string selectorText)
{
    auto row = newRow(RowKind::Command, std::move(name), level, readOnly, flag, selector,
        std::move(selectorText));
    row->value = TextValue { std::move(text), 0 };
    m_impl->add(category, std::move(row));
}

void CameraFeatureBrowser::modifyFeature(
    std::string name, long value, long min, long max, unsigned int inc, bool readOnly, bool flag)
{
    m_impl->withRow(name, [&](BrowserWindow& window, FeatureRow& row) {
        window.setValue(row, IntegerValue { value, min, max, inc }, readOnly, flag);
    });
}

void CameraFeatureBrowser::modifyFeature(
    std::string name, double value, double min, double max, double inc, bool readOnly, bool flag)
{
    m_impl->withRow(name, [&](BrowserWindow& window, FeatureRow& row) {
        window.setValue(row, FloatValue { value, min, max, inc }, readOnly, flag);
    });
}

void CameraFeatureBrowser::modifyFeature(std::string name, std::string value, CAM_TYPE_VALUE kind,
    std::list<std::string> entries, bool readOnly, bool flag)
{
    m_impl->withRow(name, [&](BrowserWindow& window, FeatureRow& row) {
        if (std::holds_alternative<ChoiceValue>(row.value)) {
            ChoiceValue choice { readIndex(value), toVector(std::move(entries)) };
            window.setValue(row, std::move(choice), readOnly, flag);
            return;
        }
        if (isPlainText(row)) {
            window.model().setKind(
                row, kind == CAM_TYPE_READ_ONLY_STRING ? RowKind::ReadOnlyText : RowKind::Text);
        }
        const auto* held = std::get_if<TextValue>(&row.value);
        TextValue text { std::move(value), held != nullptr ? held->maxLength : 0 };
        window.setValue(row, std::move(text), readOnly, flag);
    });
}

void CameraFeatureBrowser::setDefaultValue(std::string name, long value, std::string message)
{
    m_impl->resetValue(name, qint64 { value }, message);
}

void CameraFeatureBrowser::setDefaultValue(std::string name, double value, std::string message)
{
    m_impl->resetValue(name, value, message);
}

void CameraFeatureBrowser::setItemDescription(std::string name, std::string text)
{
    m_impl->withRow(name, [&](BrowserWindow& window, FeatureRow& row) {
        window.setDescription(row, std::move(text));
    });
}

void CameraFeatureBrowser::modifyFeatureStates(std::map<std::string, FEATURE_STATE>& states)
{
    m_impl->with([&](BrowserWindow& window) { window.model().setStates(states); });
}

void CameraFeatureBrowser::setNumberOfSteps(int steps)
{
    m_impl->with([&](BrowserWindow& window) { window.setSliderSteps(steps); });
}

void CameraFeatureBrowser::setVisibility(TYPE_LEVEL level)
{
    m_impl->with([&](BrowserWindow& window) { window.setLevel(level); });
}

void CameraFeatureBrowser::showDialog(IEventFeatureReceiver* receiver, int width, int height,
    std::vector<int> columns, std::map<std::string, FEATURE_STATE> states)
{
    m_impl->show(Qt::Dialog, receiver, width, height, columns, states);
}

void CameraFeatureBrowser::showStandalone(IEventFeatureReceiver* receiver, int width, int height,
    std::vector<int> columns, std::map<std::string, FEATURE_STATE> states)
{
    m_impl->show(Qt::Window, receiver, width, height, columns, states);
}

void CameraFeatureBrowser::showDialog()
{
    m_impl->with([](BrowserWindow& window) {
        window.present(window.windowType() == Qt::Window ? Qt::Window : Qt::Dialog);
    });
}

void CameraFeatureBrowser::hideDialog()
{
    m_impl->with([](BrowserWindow& window) { window.hide(); });
}

void CameraFeatureBrowser::closeDialog()
{
    m_impl->with([](BrowserWindow& window) { window.close(); });
}

bool CameraFeatureBrowser::isVisible()
{
    const BrowserWindow* window = m_impl->window.data();
    return window != nullptr && window->isVisible();
}

QWidget* CameraFeatureBrowser::GetWidget()
{
    return m_impl->window.data();
}

void CameraFeatureBrowser::clearFeatureItems()
{
    m_impl->with([](BrowserWindow& window) { window.clear(); });
}

namespace {

RowAccess accessOf(const FeatureItem& item, bool isOpenedForReading)
{
    switch (item.accessMode) {
    case ACCESS_READ_ONLY:
        return RowAccess::Read;
    case ACCESS_WRITE_ONLY:
        return RowAccess::Write;
    case ACCESS_READ_WRITE:
        return isOpenedForReading ? RowAccess::ReadAndWriteButOpenedForReading
                                  : RowAccess::ReadAndWrite;
    default:
        return RowAccess::Unknown;
    }
}

/// The reason of a moment would still stand there when it holds no longer.
std::string withoutEnd(const std::string& text, const std::string& end)
{
    const std::size_t kept = text.size() - std::min(text.size(), end.size());
    return text.compare(kept, end.size(), end) == 0 ? text.substr(0, kept) : text;
}

} // namespace

void describeFeatures(QWidget* window, const std::list<std::shared_ptr<FeatureItem>>& features,
    bool isOpenedForReading)
{
    describeFeatures(window, features, isOpenedForReading, nullptr);
}

void describeFeatures(QWidget* window, const std::list<std::shared_ptr<FeatureItem>>& features,
    bool isOpenedForReading, std::function<std::string(const std::string& name)> reason)
{
    auto* browser = qobject_cast<BrowserWindow*>(window);
    if (browser == nullptr) {
        return;
    }
    FeatureModel& model = browser->model();
    for (const auto& item : features) {
        if (FeatureRow* row = model.find(item->name)) {
            const std::string told = reason ? reason(item->name) : std::string();
            model.describe(
                *row, withoutEnd(item->description, told), accessOf(*item, isOpenedForReading));
        }
    }
    model.setReasons(std::move(reason));
    browser->showDescription();
}

} // namespace featurebrowser
