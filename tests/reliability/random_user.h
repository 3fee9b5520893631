// SPDX-License-Identifier: MIT
#pragma once

#include "app/new_layers.h"
#include "app/still_pictures.h"
#include "ui/fields/number_field.h"
#include "ui/program_under_test.h"

#include <QDir>
#include <QImage>
#include <QString>
#include <functional>
#include <random>
#include <vector>

namespace wallgrid {

/// Works with the program as fast as it can: edits, adds, removes, opens, saves, exports, takes back and does again.
/// The same seed does the same.
class RandomUser {
public:
    /// Writes and opens stage.mpr, presets, stage.png and stage.psd in the folder.
    RandomUser(ProgramUnderTest& underTest, const QString& files, unsigned seed)
        : m_program(underTest)
        , m_folder(files)
        , m_random(seed)
    {
        QImage logo(40, 30, QImage::Format_ARGB32);
        logo.fill(QColor(10, 200, 100, 120));
        logo.save(m_folder + "/logo.png");
        using Action = void (GXAppDelegate::*)();
        for (const auto& [file, action] :
             std::initializer_list<std::pair<const char*, Action>>{{"logo.png", &GXAppDelegate::AddImage},
                                                                   {"", &GXAppDelegate::AddScreen},
                                                                   {"", &GXAppDelegate::remove},
                                                                   {"", &GXAppDelegate::removePreset},
                                                                   {"stage", &GXAppDelegate::saveProject},
                                                                   {"stage.mpr", &GXAppDelegate::openProject},
                                                                   {"stage", &GXAppDelegate::saveAction},
                                                                   {"stage", &GXAppDelegate::savePSD},
                                                                   {"presets", &GXAppDelegate::savePresets},
                                                                   {"presets", &GXAppDelegate::openPresets}})
            m_actions.push_back([this, file = file, action = action] { run(file, action); });
        UndoHistory& history = m_program.application.history();
        auto& delegate = m_program.delegate();
        for (int i = 0; i < 4; ++i)
            m_actions.push_back([this] { editField(); });
        for (const char* command : {"&Duplicate", "Add Pr&eset to Layers"}) {
            m_actions.push_back([this, command] {
                anyLayer();
                m_program.delegate().presetarraycontroller().setSelectionIndex(below(4));
                m_program.trigger(command);
            });
        }
        m_actions.push_back([&] { history.undo(); });
        m_actions.push_back([&] { history.redo(); });
        m_actions.push_back([this] {
            if (GXItem* layer = anyLayer())
                layer->setPanelWidth(number(1, 80));
        });
        m_actions.push_back([this, &history] {
            m_program.application.openFile((m_folder + "/stage.mpr").toStdString());
            history.undo();
        });
        m_actions.push_back([this] { compareWithReopened(); });
        m_actions.push_back(oneStep("Change Image", [this] {
            for (const ItemRef& item : m_program.delegate().arraycontroller().arrangedObjects()) {
                if (const auto still = std::dynamic_pointer_cast<GXStill>(item))
                    changePicture(m_program.delegate(), *still, location("logo.png"));
            }
        }));
        m_actions.push_back(oneStep("Add", [this] { m_newLayers.addScreen(); }));
        for (const auto& [field, typed] : {std::pair("&Name", "Wall #\r"), {"H-Start", "+7\r"}, {"V-Start", "-=3\r"}}) {
            m_actions.push_back(oneStep(field, [this, field = field, typed = typed] {
                QCoreApplication::processEvents(); // the inspector shows what is selected
                if (auto* edited = m_program.find<QWidget>(field); edited && edited->isEnabled())
                    type(edited, typed);
            }));
        }
        for (const char* command :
             {"&Left", "&Right", "&Centre", "&Top", "&Middle", "&Bottom", "Distribute &Across", "Distribute &Down",
              "Place in Ro&ws…", "&Select All", "&Copy", "Cu&t", "&Paste", "&Duplicate", "Arra&y…", "&New Project"})
            m_actions.push_back(oneStep(command, [this, command] { m_program.action(command)->trigger(); }));
        m_actions.push_back([&] {
            delegate.arraycontroller().setSelectionIndexes({below(kMostItems), below(kMostItems)});
        });
        m_actions.push_back([&] {
            delegate.setOutputWidth(number(1, 400));
            delegate.setOutputHeight(number(1, 300));
            delegate.setBgColor(below(2) == 0 ? nullptr : Color::calibratedRGB(0.2, 0.4, 0.6, 0.5));
        });
    }

    /// Does one of all the things, and what follows of it in the run loop.
    void act()
    {
        m_actions[below(m_actions.size())]();
        while (m_program.layers().size() > kMostItems)
            m_program.delegate().arraycontroller().removeObjectAtArrangedObjectIndex(0);
        m_program.runLoop.advance(0.3);
        QCoreApplication::processEvents();
    }

    /// The same document, presets and empty history each time.
    void startAnew()
    {
        GXAppDelegate& delegate = m_program.delegate();
        delegate.setPresetScreensArray(std::make_shared<ItemArray>(ItemArray{makeScreen(u"preset")}));
        delegate.setBgColor(nullptr);
        delegate.loadProject({300, 400, {makeScreen(u"one"), makeScreen(u"two")}});
        m_program.settle();
        m_program.application.history().start();
        m_program.settle();
    }

private:
    static constexpr int kMostItems = 12;

    std::size_t below(std::size_t count) { return m_random() % count; }
    std::int32_t number(int from, int to) { return from + std::int32_t(below(std::size_t(to - from) + 1)); }

    UrlRef location(const char* file) const
    {
        return std::make_shared<const Url>(Url::fromFilePath((m_folder + '/' + file).toStdString()));
    }

    void run(const char* file, void (GXAppDelegate::*action)())
    {
        m_program.panels.answer = location(file);
        (m_program.delegate().*action)();
    }

    /// Selects it; null when there is none.
    GXItem* anyLayer()
    {
        auto& layers = m_program.delegate().arraycontroller();
        if (!layers.arrangedObjects().empty())
            layers.setSelectionIndex(below(layers.arrangedObjects().size()));
        return layers.selectedObject().get();
    }

    /// Does something with several layers, takes it back and does it again.
    std::function<void()> oneStep(const char* name, const std::function<void()>& change)
    {
        return [=, this] { doAndUndo(name, change); };
    }

    void doAndUndo(const char* name, const std::function<void()>& change)
    {
        UndoHistory& history = m_program.application.history();
        const auto project = [&] { return writeProject(m_program.delegate().project()); };
        m_program.delegate().arraycontroller().setSelectionIndexes({below(4), below(kMostItems), below(kMostItems)});
        // Sizes that drawing computes anew are no change.
        for (const ItemRef& item : m_program.delegate().arraycontroller().arrangedObjects())
            item->drawInRect();
        history.closeStep(); // or typing would go on with the step before
        const DocumentStateRef state = history.state();
        const Bytes before = project();
        change();
        if (auto* dialog = m_program.window().findChild<QDialog*>(); dialog && dialog->isVisible()) {
            for (NumberField* number : dialog->findChildren<NumberField*>())
                number->enter(below(2) == 0 ? 1 : 3);
            dialog->accept();
        }
        history.commit();
        if (history.state() == state)
            return;
        const Bytes after = project();
        history.undo();
        if (project() != before)
            qFatal("undo does not bring back what stood before \"%s\"", name);
        history.redo();
        if (project() != after)
            qFatal("redo does not bring back what \"%s\" made", name);
    }

    /// What is exported of the document now, and once it has been saved and opened again, is the same.
    void compareWithReopened()
    {
        const auto exported = [&] {
            m_program.delegate().setShouldUpdate(true);
            m_program.delegate().update();
            QByteArray bytes;
            run("live", &GXAppDelegate::saveAction);
            run("live", &GXAppDelegate::savePSD);
            for (const char* name : {"/live.png", "/live.psd"}) {
                QFile file(m_folder + name);
                file.open(QIODevice::ReadOnly);
                bytes += file.readAll();
            }
            return bytes;
        };
        const QByteArray before = exported();
        run("live.mpr", &GXAppDelegate::saveProject);
        run("live.mpr", &GXAppDelegate::openProject);
        if (exported() != before)
            qFatal("the reopened project is exported with other bytes");
    }

    void editField()
    {
        GXItem* const layer = anyLayer();
        const auto& field = GXItem::fields()[below(GXItem::fields().size())];
        if (!layer || field.property.starts_with("screenSize")) // nobody types that
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

    ProgramUnderTest& m_program;
    NewLayers m_newLayers{m_program.delegate(), m_program.application.history()};
    QString m_folder;
    std::mt19937 m_random;
    std::vector<std::function<void()>> m_actions;
};

} // namespace wallgrid
