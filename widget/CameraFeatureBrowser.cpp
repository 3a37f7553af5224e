#include "featurebrowser/CameraFeatureBrowser.h"

#include "BrowserWindow.h"
#include "NewRows.h"
#include "ValueWriter.h"

#include <QPointer>

#include <charconv>

namespace featurebrowser {

namespace {

std::vector<std::string> toVector(std::list<std::string> entries)
{
    return { std::make_move_iterator(entries.begin()), std::make_move_iterator(entries.end()) };
}

int indexFromText(const std::string& text)
{
    int index = -1;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), index);
    return end.ec == std::errc() ? index : -1;
}

bool isChoice(const FeatureRow& row)
{
    return row.kind == RowKind::Enumeration || row.kind == RowKind::Boolean;
}

bool isPlainText(const FeatureRow& row)
{
    return row.kind == RowKind::Text || row.kind == RowKind::ReadOnlyText;
}

} // namespace

// The window is gone when the application's window that embedded it was destroyed first; all
// operations then do nothing.
class CameraFeatureBrowser::Impl {
public:
    QPointer<BrowserWindow> window;

    FeatureRow* find(const std::string& name) const
    {
        return window ? window->model().find(name) : nullptr;
    }
    void add(const std::string& category, std::unique_ptr<FeatureRow> row) const
    {
        if (window)
            window->model().addFeature(category, std::move(row));
    }
    void updated(FeatureRow& row, int changes) const { window->updated(row, changes); }
    void show(Qt::WindowType type, IEventFeatureReceiver* receiver, int width, int height,
        const std::vector<int>& columns, const std::map<std::string, FEATURE_STATE>& states) const
    {
        if (!window)
            return;
        window->events().setReceiver(receiver);
        window->model().setStates(states);
        window->applySizes(width, height, columns);
        window->present(type);
    }
};

CameraFeatureBrowser::CameraFeatureBrowser(QWidget* parent)
    : m_impl(std::make_unique<Impl>())
{
    m_impl->window = new BrowserWindow(parent);
}

CameraFeatureBrowser::~CameraFeatureBrowser()
{
    delete m_impl->window;
}

void CameraFeatureBrowser::addCategory(std::string name, TYPE_LEVEL level)
{
    addSubCategory({}, std::move(name), level);
}

void CameraFeatureBrowser::addSubCategory(std::string parent, std::string name, TYPE_LEVEL level)
{
    if (m_impl->window)
        m_impl->window->model().addCategory(parent, name, level);
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
    if (FeatureRow* row = m_impl->find(name))
        m_impl->updated(*row,
            m_impl->window->model().setInteger(*row, { value, min, max, inc }, readOnly, flag));
}

void CameraFeatureBrowser::modifyFeature(
    std::string name, double value, double min, double max, double inc, bool readOnly, bool flag)
{
    if (FeatureRow* row = m_impl->find(name))
        m_impl->updated(
            *row, m_impl->window->model().setFloat(*row, { value, min, max, inc }, readOnly, flag));
}

void CameraFeatureBrowser::modifyFeature(std::string name, std::string value, CAM_TYPE_VALUE kind,
    std::list<std::string> entries, bool readOnly, bool flag)
{
    FeatureRow* row = m_impl->find(name);
    if (row == nullptr)
        return;
    FeatureModel& model = m_impl->window->model();
    if (isChoice(*row)) {
        ChoiceValue choice { indexFromText(value), toVector(std::move(entries)) };
        m_impl->updated(*row, model.setChoice(*row, std::move(choice), readOnly, flag));
        return;
    }
    if (isPlainText(*row))
        model.setKind(
            *row, kind == CAM_TYPE_READ_ONLY_STRING ? RowKind::ReadOnlyText : RowKind::Text);
    m_impl->updated(*row, model.setText(*row, std::move(value), readOnly, flag));
}

void CameraFeatureBrowser::setDefaultValue(std::string name, long value, std::string message)
{
    FeatureRow* row = m_impl->find(name);
    if (row == nullptr)
        return;
    if (const auto* current = std::get_if<IntegerValue>(&row->value)) {
        IntegerValue reset = *current;
        reset.value = value;
        m_impl->updated(*row, m_impl->window->model().setInteger(*row, reset, row->readOnly, true));
    }
    m_impl->window->writer().showMessage(name, toText(message));
}

void CameraFeatureBrowser::setDefaultValue(std::string name, double value, std::string message)
{
    FeatureRow* row = m_impl->find(name);
    if (row == nullptr)
        return;
    if (const auto* current = std::get_if<FloatValue>(&row->value)) {
        FloatValue reset = *current;
        reset.value = value;
        m_impl->updated(*row, m_impl->window->model().setFloat(*row, reset, row->readOnly, true));
    }
    m_impl->window->writer().showMessage(name, toText(message));
}

void CameraFeatureBrowser::setItemDescription(std::string name, std::string text)
{
    if (FeatureRow* row = m_impl->find(name))
        m_impl->window->setDescription(*row, std::move(text));
}

void CameraFeatureBrowser::modifyFeatureStates(std::map<std::string, FEATURE_STATE>& states)
{
    if (m_impl->window)
        m_impl->window->model().setStates(states);
}

void CameraFeatureBrowser::setNumberOfSteps(int steps)
{
    if (m_impl->window)
        m_impl->window->setSliderSteps(steps);
}

void CameraFeatureBrowser::setVisibility(TYPE_LEVEL level)
{
    if (m_impl->window)
        m_impl->window->setLevel(level);
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
    if (m_impl->window)
        m_impl->window->present(
            m_impl->window->windowType() == Qt::Window ? Qt::Window : Qt::Dialog);
}

void CameraFeatureBrowser::hideDialog()
{
    if (m_impl->window)
        m_impl->window->hide();
}

void CameraFeatureBrowser::closeDialog()
{
    if (m_impl->window)
        m_impl->window->close();
}

bool CameraFeatureBrowser::isVisible()
{
    return m_impl->window && m_impl->window->isVisible();
}

QWidget* CameraFeatureBrowser::GetWidget()
{
    return m_impl->window;
}

void CameraFeatureBrowser::clearFeatureItems()
{
    if (m_impl->window)
        m_impl->window->clear();
}

} // namespace featurebrowser
