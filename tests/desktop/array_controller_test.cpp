// SPDX-License-Identifier: MIT
#include "desktop/array_controller.h"

#include <gtest/gtest.h>

using namespace wallgrid;

namespace {

struct Thing : KeyValueObservable {
    explicit Thing(char letter)
        : name(letter)
    {
    }
    void change(std::string_view key) { didChangeValue(key); }
    char name;
};

class ArrayControllerTest : public testing::Test {
protected:
    using Controller = ArrayController<Thing>;

    ArrayControllerTest()
    {
        controller.setContent(list);
        observation = controller.observeArrangedObjects({"col", "row"}, [this] { told.push_back(state()); });
    }

    static std::shared_ptr<Thing> thing(char name) { return std::make_shared<Thing>(name); }

    /// The list's letters, selected ones in capitals.
    std::string state() const
    {
        std::string text;
        for (std::size_t i = 0; i < list->size(); ++i)
            text += static_cast<char>((*list)[i]->name - (controller.selectionIndexes().contains(i) ? 'a' - 'A' : 0));
        return text;
    }

    Registration observation;
    Controller::ContentRef list = std::make_shared<Controller::Array>(
        Controller::Array{thing('a'), thing('b'), thing('c'), thing('d'), thing('e')});
    Controller controller;
    std::vector<std::string> told; ///< the state that the observer found, one entry a call
};

} // namespace

TEST_F(ArrayControllerTest, TellsOncePerChangeOfMembershipAfterSelecting)
{
    controller.insertObjectAtArrangedObjectIndex(thing('x'), 5);
    controller.insertObjectAtArrangedObjectIndex(thing('y'), 1);
    controller.removeObjectAtArrangedObjectIndex(0);
    controller.removeObjectsAtArrangedObjectIndexes({1, 3});
    controller.addObjects({thing('v'), thing('w')});
    controller.removeObjects({list->front(), list->back()});
    const std::vector<std::string> all{"abcdeX", "aYbcdex", "Ybcdex", "Ycex", "ycexVW", "cexV"};
    EXPECT_EQ(told, all);
    controller.insertObjectAtArrangedObjectIndex(thing('x'), 5);
    controller.removeObjectAtArrangedObjectIndex(4);
    controller.removeObjects({thing('c')});
    controller.addObjects({});
    controller.setSelectionIndexes({1, 7});
    EXPECT_EQ(controller.selectionIndexes(), Controller::Indexes{1});
    EXPECT_EQ(told, all) << "nothing outside the list";
    const auto observed = controller.observeSelection([] { ADD_FAILURE() << "it is selected already"; });
    controller.setSelectionIndexes({1});
}

TEST_F(ArrayControllerTest, SelectionStaysOnItsObjectsOrFallsToTheNextRow)
{
    controller.setSelectionIndexes({2, 3});
    controller.removeObjectAtArrangedObjectIndex(0);
    controller.removeObjectsAtArrangedObjectIndexes({1, 2});
    controller.removeObjectAtArrangedObjectIndex(1);
    controller.setSelectionIndexes({});
    controller.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(told, (std::vector<std::string>{"bCDe", "bE", "B", ""}));
    EXPECT_EQ(controller.selectedObject(), nullptr);
}

TEST_F(ArrayControllerTest, RelaysObservedPropertiesOfMembersOnly)
{
    const auto b = list->at(1);
    b->change("col");
    b->change("label");
    EXPECT_EQ(told.size(), 1u);

    controller.insertObjectAtArrangedObjectIndex(b, 4); // a move: in the list twice for a moment
    b->change("row");
    EXPECT_EQ(told.size(), 3u) << "told once although it stands in the list twice";
    controller.removeObjectAtArrangedObjectIndex(1);
    b->change("row");
    EXPECT_EQ(told.size(), 5u) << "still in the list once";
    controller.removeObjects({b});
    b->change("row");
    EXPECT_EQ(told.size(), 6u) << "the removal alone";
}

TEST(KeyValueObserving, HandlersMayComeAndGoWhileBeingTold)
{
    Thing thing('a');
    std::string calls;
    Registration second;
    Registration third;
    auto first = thing.observe([&](std::string_view key) {
        calls += "1";
        if (key == "nested")
            return;
        second = {};                                                    // not called any more
        third = thing.observe([&](std::string_view) { calls += "3"; }); // called from the next change on
        thing.change("nested");
    });
    second = thing.observe([&](std::string_view) { calls += "2"; });
    thing.change("col");
    EXPECT_EQ(calls, "113");
}
