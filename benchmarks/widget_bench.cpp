// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The widget against a bare item model in a tree view: the same rows, hidden and shown, in one run.
#include "featurebrowser/CameraFeatureBrowser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPaintEvent>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <unordered_map>

#include <malloc.h>

namespace {

using namespace featurebrowser;

constexpr int featuresPerCategory = 25;

std::string featureName(int i)
{
    return "FeatureNumber" + std::to_string(i);
}
std::string categoryName(int i)
{
    return "Category" + std::to_string(i / featuresPerCategory);
}

std::string description(int i)
{
    return "How long part " + std::to_string(i)
        + " of the sensor collects light before it is read out, for each image that is taken. "
          "Unit: us";
}

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double medianOf(int repeats, const std::function<void(int)>& work)
{
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(repeats));
    for (int i = 0; i < repeats; ++i)
        times.push_back(milliseconds([&] { work(i); }));
    return median(times);
}

// Sums up what is painted.
class PaintMeter : public QObject {
public:
    int height = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            height += static_cast<QPaintEvent*>(event)->rect().height();
        return false;
    }
};

// What both sides can do.
class Side {
public:
    Side() = default;
    Side(const Side&) = delete;
    Side& operator=(const Side&) = delete;
    virtual ~Side() = default;
    virtual void fill(int rows) = 0;
    /// Texts as cameras have them: 120 characters and a unit.
    virtual void describe(int rows) = 0;
    virtual void update(int row, long value) = 0;
    virtual void setLevel(int level) = 0;
    virtual void find(const std::string& text) = 0;
    virtual QTreeView* view() = 0;
    virtual QWidget* window() = 0;
};

class Widget : public Side {
public:
    Widget()
        : m_browser(nullptr)
    {
    }
    void fill(int rows) override
    {
        m_browser.clearFeatureItems();
        for (int i = 0; i < rows; ++i) {
            if (i % featuresPerCategory == 0)
                m_browser.addCategory(categoryName(i), LEVEL_BEGINNER);
            const auto level = static_cast<TYPE_LEVEL>(i % 3 + 1);
            m_browser.addIntFeature(categoryName(i), featureName(i), i, 0, 1000000, 1, level, false,
                true, SELECTOR_NONE, "");
        }
    }
    void describe(int rows) override
    {
        std::list<std::shared_ptr<FeatureItem>> items;
        for (int i = 0; i < rows; ++i) {
            items.push_back(std::make_shared<FeatureItem>());
            items.back()->name = featureName(i);
            items.back()->description = description(i);
            items.back()->accessMode = ACCESS_READ_WRITE;
        }
        describeFeatures(window(), items);
    }
    void update(int row, long value) override
    {
        m_browser.modifyFeature(featureName(row), value, 0L, 1000000L, 1U, false, true);
    }
    void setLevel(int level) override { m_browser.setVisibility(static_cast<TYPE_LEVEL>(level)); }
    void find(const std::string& text) override
    {
        window()
            ->findChild<QLineEdit*>(QStringLiteral("filterField"))
            ->setText(QString::fromStdString(text));
    }
    QTreeView* view() override
    {
        return window()->findChild<QTreeView*>(QStringLiteral("featureTree"));
    }
    QWidget* window() override { return m_browser.GetWidget(); }

private:
    CameraFeatureBrowser m_browser;
};

class Bare : public Side {
public:
    Bare()
    {
        m_view.setUniformRowHeights(true);
        m_view.setModel(&m_model);
        m_view.resize(600, 600);
    }
    void fill(int rows) override
    {
        m_items.clear();
        m_model.clear();
        m_model.setColumnCount(2);
        QStandardItem* category = nullptr;
        for (int i = 0; i < rows; ++i) {
            if (i % featuresPerCategory == 0) {
                category = new QStandardItem(QString::fromStdString(categoryName(i)));
                m_model.appendRow({ category, new QStandardItem });
            }
            auto* value = new QStandardItem(QString::number(i));
            auto* name = new QStandardItem(QString::fromStdString(featureName(i)));
            name->setData(i % 3 + 1);
            category->appendRow({ name, value });
            m_items.emplace(featureName(i), value);
        }
    }
    void describe(int rows) override
    {
        for (int i = 0; i < rows; ++i)
            m_items.at(featureName(i))->setToolTip(QString::fromStdString(description(i)));
    }
    void update(int row, long value) override
    {
        m_items.at(featureName(row))->setText(QString::number(value));
    }
    void setLevel(int level) override
    {
        hide([level](const QStandardItem& item) { return item.data().toInt() > level; });
    }
    void find(const std::string& text) override
    {
        const QString wanted = QString::fromStdString(text);
        hide([&wanted](const QStandardItem& item) { return !item.text().contains(wanted); });
    }
    QTreeView* view() override { return &m_view; }
    QWidget* window() override { return &m_view; }

private:
    void hide(const std::function<bool(const QStandardItem&)>& isHidden)
    {
        for (int i = 0; i < m_model.rowCount(); ++i) {
            const QStandardItem* category = m_model.item(i);
            for (int j = 0; j < category->rowCount(); ++j)
                m_view.setRowHidden(j, category->index(), isHidden(*category->child(j)));
        }
    }

    QStandardItemModel m_model;
    QTreeView m_view;
    std::unordered_map<std::string, QStandardItem*> m_items;
};

struct Figures {
    std::vector<std::pair<const char*, double>> times; ///< ms
    double bytesPerRow = 0;
    double paintedRows = 0; ///< height painted for one update, in rows
};

std::size_t allocated()
{
    return mallinfo2().uordblks + mallinfo2().hblkhd;
}

Figures measure(Side& side, int rows, bool shown)
{
    Figures figures;
    const auto settle = [] { QApplication::processEvents(); };
    const auto add = [&](const char* what, double time) { figures.times.emplace_back(what, time); };
    side.window()->setVisible(shown);
    settle();
    const std::size_t before = allocated();
    const double fill = milliseconds([&] {
        side.fill(rows);
        settle();
    });
    const double describe = milliseconds([&] {
        side.describe(rows);
        settle();
    });
    figures.bytesPerRow = static_cast<double>(allocated() - before) / rows;
    const double expand = milliseconds([&] {
        side.view()->expandAll();
        settle();
    });
    const double update = milliseconds([&] {
        for (int i = 0; i < rows; ++i)
            side.update(static_cast<int>((i * 7919LL) % rows), i + 1L);
        settle();
    });
    add("fill", fill);
    add("update all, random order", update);
    add("fill + update all", fill + update);
    add("describe all", describe);
    add("expand all", expand);
    side.view()->scrollToTop();
    settle();
    PaintMeter meter;
    side.view()->viewport()->installEventFilter(&meter);
    add("one on-screen update", medianOf(201, [&](int i) {
        side.update(3, 500000 + i);
        settle();
    }));
    const int rowHeight
        = std::max(1, side.view()->visualRect(side.view()->model()->index(0, 0)).height());
    figures.paintedRows = static_cast<double>(meter.height) / 201 / rowHeight;
    add("level change", medianOf(5, [&](int i) {
        side.setLevel(i % 2 + 1);
        settle();
    }));
    side.setLevel(3);
    settle();
    add("filter keystroke", medianOf(7, [&](int i) {
        side.find(std::string("9753").substr(0, static_cast<std::size_t>(i % 4 + 1)));
        settle();
    }));
    side.window()->hide();
    return figures;
}

void print(int rows, bool shown)
{
    Figures widget;
    Figures bare;
    {
        Widget side;
        widget = measure(side, rows, shown);
    }
    {
        Bare side;
        bare = measure(side, rows, shown);
    }
    std::printf("\n%d features, %s\n", rows, shown ? "shown" : "hidden");
    for (std::size_t i = 0; i < widget.times.size(); ++i) {
        std::printf("  %-26s %10.3f ms  bare %10.3f ms  ratio %6.2f\n", widget.times[i].first,
            widget.times[i].second, bare.times[i].second,
            widget.times[i].second / bare.times[i].second);
    }
    std::printf("  %-26s %10.0f B   bare %10.0f B\n", "memory per feature", widget.bytesPerRow,
        bare.bytesPerRow);
    if (shown)
        std::printf("  %-26s %10.1f     bare %10.1f\n", "rows painted per update",
            widget.paintedRows, bare.paintedRows);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const int largest = argc > 1 ? std::atoi(argv[1]) : 100000;
    for (const int rows : { 350, 2000, 10000, 100000 }) {
        for (const bool shown : { false, true }) {
            if (rows <= largest)
                print(rows, shown);
        }
    }
    return 0;
}
