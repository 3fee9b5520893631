// SPDX-License-Identifier: MIT
#include "ui/window/window_memory.h"

#include <QMainWindow>
#include <QSettings>
#include <QSplitter>
#include <algorithm>

namespace wallgrid {

namespace {

constexpr auto kGeometryKey = "geometry";

QString keyOf(const QSplitter& splitter)
{
    return "splitters/" + splitter.objectName();
}

} // namespace

void rememberWindow(const QMainWindow& window, QSettings& memory)
{
    memory.setValue(kGeometryKey, window.saveGeometry());
    for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
        QVariantList sizes;
        for (const int size : splitter->sizes())
            sizes.append(size);
        memory.setValue(keyOf(*splitter), sizes);
    }
}

void restoreWindow(QMainWindow& window, const QSettings& memory)
{
    window.restoreGeometry(memory.value(kGeometryKey).toByteArray());
    for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
        QList<int> sizes;
        for (const QVariant& size : memory.value(keyOf(*splitter)).toList())
            sizes.append(size.toInt());
        const bool usable = std::all_of(sizes.begin(), sizes.end(), [](int size) { return size > 0; });
        if (usable && sizes.size() == splitter->count())
            splitter->setSizes(sizes);
    }
}

} // namespace wallgrid
