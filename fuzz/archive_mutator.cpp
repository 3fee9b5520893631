// SPDX-License-Identifier: MIT
//
// Changes property lists object by object and writes a sound container around the result, where libFuzzer's own changes
// of bytes seldom leave one. Now and then, and for what is no property list, those are made instead.
#include "archive/property_list.h"
#include "fuzz/raw_plist.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

using wallgrid::PlistObject;
using wallgrid::PropertyList;

// NOLINTBEGIN(*-identifier-naming): names of libFuzzer's
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed);
// NOLINTEND(*-identifier-naming)

namespace {

constexpr std::size_t kMostObjects = 4000;

/// Scalars that stand on the edge of something.
const char* const kEdges[] = {"00",
                              "08",
                              "09",
                              "10 00",
                              "10 01",
                              "10 05",
                              "11 FFFF",
                              "12 7FFFFFFF",
                              "12 80000000",
                              "13 FFFFFFFF FFFFFFFF",
                              "13 FFFFFFFF 80000000",
                              "13 80000000 00000000",
                              "14 00000000 00000001 00000000 00000000",
                              "22 7FC00000",
                              "23 7FF00000 00000000",
                              "23 C1E00000 00000000",
                              "80 00",
                              "80 05",
                              "81 FFFF",
                              "87 FFFFFFFF FFFFFFFF",
                              "40",
                              "50",
                              "61 D800",
                              "4A 6E616E20 696E6620 2D31",
                              "45 302C3520 31",
                              "A0",
                              "C0",
                              "D0"};

/// One object: its bytes, or the references of a container.
struct Object {
    char marker = 0;
    std::string scalar;
    std::vector<unsigned> references;
    bool isContainer() const { return marker != 0; }
};

std::vector<Object> objectsOf(const PropertyList& list)
{
    std::vector<Object> objects(list.count());
    for (std::uint32_t i = 0; i < list.count(); ++i) {
        const PlistObject object = list.object(i);
        if (!object.isContainer()) {
            const auto bytes = object.encodedScalar();
            objects[i].scalar.assign(bytes.begin(), bytes.end());
            continue;
        }
        const bool isDictionary = object.kind() == PlistObject::Kind::Dictionary;
        objects[i].marker = static_cast<char>(isDictionary                                ? 0xD0
                                              : object.kind() == PlistObject::Kind::Array ? 0xA0
                                                                                          : 0xC0);
        for (std::uint32_t j = 0; j < object.size(); ++j)
            objects[i].references.push_back((isDictionary ? object.key(j) : object.element(j)).index());
        for (std::uint32_t j = 0; isDictionary && j < object.size(); ++j)
            objects[i].references.push_back(object.value(j).index());
    }
    return objects;
}

class Mutation {
public:
    Mutation(std::vector<Object>& objects, unsigned seed)
        : m_objects(objects)
        , m_random(seed)
    {
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }

    void make()
    {
        Object& object = m_objects[below(m_objects.size())];
        if (const auto choice = below(4); choice == 0)
            object = Object{0, wallgrid::fuzz::fromHex(kEdges[below(std::size(kEdges))]), {}};
        else if (choice == 1)
            object = Object(m_objects[below(m_objects.size())]);
        else if (object.isContainer())
            changeContainer(object);
        else
            changeScalar(object.scalar);
    }

private:
    void changeContainer(Object& object)
    {
        auto& references = object.references;
        const bool isDictionary = object.marker == static_cast<char>(0xD0);
        const std::size_t size = isDictionary ? references.size() / 2 : references.size();
        const auto choice = below(4);
        if (choice == 0 && size > 0) {
            const auto at = static_cast<std::ptrdiff_t>(below(size));
            if (isDictionary)
                references.erase(references.begin() + static_cast<std::ptrdiff_t>(size) + at);
            references.erase(references.begin() + at);
        } else if (choice == 1) {
            const auto at = static_cast<std::ptrdiff_t>(below(size + 1));
            if (isDictionary)
                references.insert(references.begin() + static_cast<std::ptrdiff_t>(size) + at, anyObject());
            references.insert(references.begin() + at, anyObject());
        } else if (!references.empty()) {
            references[below(references.size())] = anyObject();
        }
    }

    /// Its contents, within what its marker and its count allow.
    void changeScalar(std::string& scalar)
    {
        const unsigned high = static_cast<unsigned char>(scalar[0]) >> 4;
        const bool isCounted = high == 4 || high == 5 || high == 6;
        const std::size_t head = isCounted && (scalar[0] & 15) == 15 ? 2 + (std::size_t{1} << (scalar[1] & 3)) : 1;
        std::string contents = scalar.substr(head);
        const std::size_t unit = high == 6 ? 2 : 1;
        const std::size_t maximum = isCounted ? contents.size() + 4 * unit : contents.size();
        if (maximum == 0)
            return;
        contents.resize(maximum);
        const auto size =
            LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(contents.data()), scalar.size() - head, maximum);
        if (!isCounted) {
            std::copy(contents.begin(), contents.begin() + static_cast<std::ptrdiff_t>(size), scalar.begin() + 1);
            return;
        }
        contents.resize(size / unit * unit);
        if (high == 5)
            std::ranges::transform(contents, contents.begin(), [](char c) { return static_cast<char>(c & 0x7F); });
        const std::size_t count = contents.size() / unit;
        scalar = count < 15 ? std::string(1, static_cast<char>(high << 4U | static_cast<unsigned>(count)))
                            : std::string{static_cast<char>(high << 4U | 15U), '\x11', static_cast<char>(count >> 8),
                                          static_cast<char>(count)};
        scalar += contents;
    }

    unsigned anyObject() { return static_cast<unsigned>(below(m_objects.size())); }

    std::vector<Object>& m_objects;
    std::minstd_rand m_random;
};

std::vector<std::uint8_t> written(const std::vector<Object>& objects, unsigned top)
{
    wallgrid::fuzz::RawPlist list;
    for (const Object& object : objects) {
        if (!object.isContainer())
            list.raw(object.scalar);
        else
            list.container(object.marker, object.references);
    }
    return list.file(top);
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum, unsigned seed)
{
    const auto list = PropertyList::open({data, data + size});
    if (!list || (*list)->count() > kMostObjects || seed % 8 == 0)
        return LLVMFuzzerMutate(data, size, maximum);
    auto objects = objectsOf(**list);
    Mutation mutation(objects, seed);
    for (auto count = 1 + mutation.below(3); count > 0; --count)
        mutation.make();
    const auto bytes = written(objects, (*list)->top().index());
    if (bytes.size() > maximum)
        return LLVMFuzzerMutate(data, size, maximum);
    std::memcpy(data, bytes.data(), bytes.size());
    return bytes.size();
}
