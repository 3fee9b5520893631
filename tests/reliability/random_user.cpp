// SPDX-License-Identifier: MIT
#include "random_user.h"

#include "ui/fields/number_field.h"

#include <QDir>
#include <QImage>
#include <algorithm>

namespace wallgrid {

namespace {

constexpr std::size_t kMostItems = 12;
constexpr std::size_t kFirstCopying = 12; ///< of the commands that arrange, those from here on make the list longer

} // namespace

RandomUser::RandomUser(ProgramUnderTest& program, const QString& folder, unsigned seed)
    : m_program(program)
    , m_folder(folder)
    , m_random(seed)
{
    QImage logo(40, 30, QImage::Format_ARGB32);
    logo.fill(QColor(10, 200, 100, 120));
    logo.save(m_folder + "/logo.png");
    GXAppDelegate& delegate = m_program.delegate();
    UndoHistory& history = m_program.application.history();
    const auto few = [](const GXAppDelegate::ItemArrayRef& items) { return items->size() < kMostItems; };
    for (const char* text :
         {"&Left", "&Centre", "&Right", "&Top", "&Middle", "&Bottom", "Distribute &Across", "Distribute &Down",
          "Place in Ro&ws…", "&Select All", "&Copy", "Cu&t", "&Paste", "Arra&y…"})
        m_arrange.push_back(&menuAction(text));
    const auto edit = [this] { editField(); };
    m_actions = {
        edit,
        edit,
        edit,
        edit,
        [&] { history.undo(); },
        [&] { history.redo(); },
        [&, few] {
            if (few(delegate.allScreensArray()))
                delegate.AddScreen();
        },
        [&, few] {
            chooseFile("logo.png");
            if (few(delegate.allScreensArray()))
                delegate.AddImage();
        },
        [&] { delegate.remove(); },
        [&, few] {
            const GXItem* layer = anyLayer();
            if (layer && few(delegate.presetScreensArray()))
                delegate.presetarraycontroller().insertObjectAtArrangedObjectIndex(layer->copy(), 0);
        },
        [&] { delegate.removePreset(); },
        [&, few] {
            const ItemArray& presets = *delegate.presetScreensArray();
            if (!presets.empty() && few(delegate.allScreensArray()))
                delegate.arraycontroller().insertObjectAtArrangedObjectIndex(presets[below(presets.size())]->copy(), 0);
        },
        [&, few] {
            anyLayer();
            if (few(delegate.allScreensArray()))
                menuAction("&Duplicate").trigger();
        },
        [&, few] {
            delegate.arraycontroller().setSelectionIndexes({below(4), below(kMostItems), below(kMostItems)});
            arrange(*m_arrange[below(few(delegate.allScreensArray()) ? m_arrange.size() : kFirstCopying)]);
        },
        [&] {
            if (GXItem* layer = anyLayer())
                layer->setPanelWidth(number(1, 80));
        },
        [&] {
            m_program.application.openFile((m_folder + "/stage.mpr").toStdString());
            history.undo();
        },
        [&] { compareWithReopened(); },
        [&] {
            delegate.arraycontroller().setSelectionIndexes({below(kMostItems), below(kMostItems)});
        },
        [&] {
            delegate.setOutputWidth(number(1, 400));
            delegate.setOutputHeight(number(1, 300));
        },
        [&] { delegate.setBgColor(below(2) == 0 ? nullptr : Color::calibratedRGB(0.2, 0.4, 0.6, 0.5)); },
        [&] {
            chooseFile("stage");
            delegate.saveProject();
        },
        [&] {
            chooseFile("stage.mpr");
            delegate.openProject();
        },
        [&] {
            chooseFile("stage");
            delegate.saveAction();
        },
        [&] {
            chooseFile("stage");
            delegate.savePSD();
        },
        [&] {
            chooseFile("presets");
            delegate.savePresets();
        },
        [&] {
            chooseFile("presets");
            delegate.openPresets();
        },
    };
}

void RandomUser::act()
{
    m_actions[below(m_actions.size())]();
    m_program.runLoop.advance(0.3);
    QCoreApplication::processEvents();
}

void RandomUser::startAnew()
{
    GXAppDelegate& delegate = m_program.delegate();
    delegate.setPresetScreensArray(std::make_shared<ItemArray>(ItemArray{makeScreen(u"preset")}));
    delegate.setBgColor(nullptr);
    delegate.loadProject({300, 400, {makeScreen(u"one"), makeScreen(u"two")}});
    m_program.settle();
    m_program.application.history().start();
    m_program.settle();
}

GXItem* RandomUser::anyLayer()
{
    auto& layers = m_program.delegate().arraycontroller();
    if (layers.arrangedObjects().empty())
        return nullptr;
    layers.setSelectionIndex(below(layers.arrangedObjects().size()));
    return layers.selectedObject().get();
}

QAction& RandomUser::menuAction(const QString& text)
{
    const auto actions = m_program.window().findChildren<QAction*>();
    return **std::find_if(actions.begin(), actions.end(),
                          [&](const QAction* action) { return action->text() == text; });
}

void RandomUser::arrange(QAction& action)
{
    UndoHistory& history = m_program.application.history();
    // Sizes that drawing computes anew are no change.
    for (const ItemRef& item : m_program.delegate().arraycontroller().arrangedObjects())
        item->drawInRect();
    history.commit();
    const DocumentStateRef state = history.state();
    const Bytes before = writeProject(m_program.delegate().project());
    action.trigger();
    if (auto* dialog = m_program.window().findChild<QDialog*>(); dialog && dialog->isVisible()) {
        for (NumberField* number : dialog->findChildren<NumberField*>())
            number->enter(below(2) == 0 ? 1 : 3);
        dialog->accept();
    }
    history.commit();
    if (history.state() == state)
        return;
    const Bytes after = writeProject(m_program.delegate().project());
    history.undo();
    if (writeProject(m_program.delegate().project()) != before)
        qFatal("undo does not bring back what stood before \"%s\"", qPrintable(action.text()));
    history.redo();
    if (writeProject(m_program.delegate().project()) != after)
        qFatal("redo does not bring back what \"%s\" made", qPrintable(action.text()));
}

void RandomUser::compareWithReopened()
{
    GXAppDelegate& delegate = m_program.delegate();
    const auto exported = [&] {
        delegate.setShouldUpdate(true);
        delegate.update();
        chooseFile("live");
        delegate.saveAction();
        delegate.savePSD();
        QByteArray bytes;
        for (const char* name : {"/live.png", "/live.psd"}) {
            QFile file(m_folder + name);
            file.open(QIODevice::ReadOnly);
            bytes += file.readAll();
        }
        return bytes;
    };
    const QByteArray before = exported();
    chooseFile("live.mpr");
    delegate.saveProject();
    delegate.openProject();
    if (exported() != before)
        qFatal("the reopened project is exported with other bytes");
}

void RandomUser::editField()
{
    GXItem* const layer = anyLayer();
    if (!layer)
        return;
    const auto& field = GXItem::fields()[below(GXItem::fields().size())];
    if (field.property.starts_with("screenSize")) // nobody types that
        return;
    const GXItem::FieldValue old = layer->value(field);
    if (std::holds_alternative<std::int32_t>(old))
        layer->setValue(field, number(-3, 20));
    else if (std::holds_alternative<bool>(old))
        layer->setValue(field, !std::get<bool>(old));
    else if (std::holds_alternative<ColorRef>(old))
        layer->setValue(field, Color::calibratedRGB(0, 0.125 * number(0, 8), 1, 0.25 * number(0, 4)));
    else
        layer->setValue(field, makeString(std::u16string(below(4), u'n')));
}

void RandomUser::chooseFile(const char* name)
{
    m_program.panels.answer = std::make_shared<const Url>(Url::fromFilePath((m_folder + '/' + name).toStdString()));
}

} // namespace wallgrid
