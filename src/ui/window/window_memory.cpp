// SPDX-License-Identifier: MIT
#include "ui/window/window_memory.h"

#include "ui/base/fold_heading.h"

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

QString keyOf(const FoldHeading& heading)
{
    return "folded/" + heading.objectName();
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
    for (const FoldHeading* heading : window.findChildren<FoldHeading*>())
        memory.setValue(keyOf(*heading), heading->isFolded());
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
    for (FoldHeading* heading : window.findChildren<FoldHeading*>())
        heading->setFolded(memory.value(keyOf(*heading), false).toBool());
}

} // namespace wallgrid
