// SPDX-License-Identifier: MIT
#include "fuzz/archive_walk.h"

#include "fuzz/fuzz_target.h"

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

void readScalar(const PlistObject& object)
{
    FUZZ_CHECK(!object.encodedScalar().empty());
    if (object.isString()) {
        FUZZ_CHECK(object.text().size() == object.size());
        object.isText("NS.objects");
    } else if (object.kind() == Kind::Integer) {
        object.integer();
    } else if (object.kind() == Kind::Real || object.kind() == Kind::Date) {
        object.real();
    } else if (object.kind() == Kind::Boolean) {
        object.boolean();
    } else if (object.kind() == Kind::Uid) {
        object.uid();
    } else if (object.kind() == Kind::Data) {
        FUZZ_CHECK(object.data().size() == object.size());
    }
}

} // namespace

void readEverything(const PropertyList& list)
{
    for (std::uint32_t i = 0; i < list.count(); ++i) {
        const PlistObject object = list.object(i);
        if (!object.isContainer())
            readScalar(object);
        for (std::uint32_t j = 0; object.isContainer() && j < object.size(); ++j) {
            if (object.kind() == Kind::Dictionary)
                FUZZ_CHECK(object.key(j).index() < list.count() && object.value(j).index() < list.count());
            else
                FUZZ_CHECK(object.element(j).index() < list.count());
        }
    }
}

} // namespace wallgrid
