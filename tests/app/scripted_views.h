// SPDX-License-Identifier: MIT
#pragma once

#include "platform/table_view.h"
#include "platform/views.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace wallgrid {

struct ScriptedTable : TableView {
    explicit ScriptedTable(std::string tableName)
        : name(std::move(tableName))
    {
    }
    std::string identifier() const override { return name; }
    void setDelegate(TableDelegate* newDelegate) override { delegate = newDelegate; }
    void registerForDraggedType(std::string_view newType) override { type = newType; }
    std::optional<std::size_t> selectedRow() override { return selected; }
    void noteNumberOfRowsChanged() override { events += "count "; }
    void reloadData() override
    {
        events += "reload ";
        ++reloads;
    }

    std::string name;
    TableDelegate* delegate = nullptr;
    std::string type;
    std::optional<std::size_t> selected;
    std::string events;
    int reloads = 0;
};

/// Writes down which sheets are loaded, begun and ended.
struct ScriptedSheets : SheetLoader {
    struct ScriptedSheet : Sheet {
        ScriptedSheet(std::vector<std::string>& log, std::string_view sheetName)
            : events(log)
            , name(sheetName)
        {
        }
        void begin() override { events.push_back("begin " + name); }
        void end() override { events.push_back("end " + name); }
        std::vector<std::string>& events;
        std::string name;
    };

    std::shared_ptr<Sheet> loadNibNamed(std::string_view name) override
    {
        log.push_back("load " + std::string(name));
        return std::make_shared<ScriptedSheet>(log, name);
    }

    std::vector<std::string> log;
};

/// Writes down which window is loaded and shown.
struct ScriptedWindows : WindowLoader {
    struct Controller : WindowController {
        explicit Controller(std::string& log)
            : shown(log)
        {
        }
        void showWindow() override { shown += " shown"; }
        std::string& shown;
    };

    std::shared_ptr<WindowController> windowControllerWithNibName(std::string_view name) override
    {
        log = name;
        return std::make_shared<Controller>(log);
    }

    std::string log;
};

} // namespace wallgrid
