// SPDX-License-Identifier: MIT
#include "ui/window/change_name.h"

#include "app/document_state.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace wallgrid {

namespace {

struct PropertyName {
    std::string_view property;
    const char* name;
};

constexpr std::array kPropertyNames{
    PropertyName{"position", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Move")},
    PropertyName{"panelSize", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Resize")},
    PropertyName{"col", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Columns")},
    PropertyName{"row", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Rows")},
    PropertyName{"label", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Rename")},
    PropertyName{"visible", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Show or Hide")},
    PropertyName{"bgEnable", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Switch Fill")},
    PropertyName{"rectColor", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Fill Colour")},
    PropertyName{"BoarderEnable", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Switch Frame")},
    PropertyName{"boarderColor", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Frame Colour")},
    PropertyName{"boarderWidth", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Frame Width")},
    PropertyName{"CircleEnable", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Switch Circle")},
    PropertyName{"circleColor", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Circle Colour")},
    PropertyName{"circleBWidth", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Circle Width")},
    PropertyName{"XYFontEnable", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Switch Position Text")},
    PropertyName{"XYFontSize", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Position Text Size")},
    PropertyName{"screenFontEnable", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Switch Size Text")},
    PropertyName{"screenFontSize", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Size Text Size")},
    PropertyName{"ImageURL", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Image")},
    PropertyName{"bgColor", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Background Colour")},
    PropertyName{"edgeColor", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Edge Colour")},
    PropertyName{"outputSize", QT_TRANSLATE_NOOP("wallgrid::ChangeName", "Change Output Size")},
};

QString tr(const char* text)
{
    return QCoreApplication::translate("wallgrid::ChangeName", text);
}

} // namespace

QString changeName(const DocumentChange& change)
{
    switch (change.what) {
    case DocumentChange::What::Nothing:
        break;
    case DocumentChange::What::Added:
        return change.presets ? tr("Add Preset") : tr("Add");
    case DocumentChange::What::Removed:
        return change.presets ? tr("Remove Preset") : tr("Remove");
    case DocumentChange::What::Reordered:
        return change.presets ? tr("Reorder Presets") : tr("Reorder");
    case DocumentChange::What::Replaced:
        return change.presets ? tr("Open Presets") : change.opened ? tr("Open Project") : tr("New Project");
    case DocumentChange::What::Property: {
        const auto* found = std::find_if(kPropertyNames.begin(), kPropertyNames.end(),
                                         [&](const PropertyName& name) { return name.property == change.property; });
        return found == kPropertyNames.end() ? tr("Changes") : tr(found->name);
    }
    }
    return {};
}

} // namespace wallgrid
