// SPDX-License-Identifier: MIT
#include "items/gx_still.h"

#include "archive/keyed_archiver.h"
#include "graphics/image_file.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace wallgrid {

namespace {

constexpr std::string_view kImageUrlKey = "imageURL";

std::int32_t truncated(double points)
{
    return static_cast<std::int32_t>(std::clamp(points, 0.0, double{std::numeric_limits<std::int32_t>::max()}));
}

} // namespace

const GXItem::Captions& GXStill::standardCaptions() const
{
    static const Captions captions{{{{makeString(u"Width")},
                                     {makeString(u"Height")},
                                     {makeString(u"Pos-H"), true},
                                     {makeString(u"Pos-V"), true},
                                     {makeString(u"H-Start")},
                                     {makeString(u"V-Start")},
                                     {makeString(u"XY Label Size"), true},
                                     {makeString(u"Label Screen Size"), true}}},
                                   true};
    return captions;
}

StillRef GXStill::init()
{
    return std::make_shared<GXStill>();
}

StillRef GXStill::initWithimage(ImageRef image)
{
    auto still = init();
    const Size size = image ? image->size() : Size{};
    still->m_thumbnail = std::move(image);
    still->m_panelHeight = still->m_screenSizeHeight = truncated(size.height);
    still->m_panelWidth = still->m_screenSizeWidth = truncated(size.width);
    still->m_visible = true;
    still->m_boarderWidth = 1;
    still->m_captions = still->standardCaptions();
    return still;
}

Expected<StillRef> GXStill::initWithCoder(KeyedDecoder& coder, ImageFiles& images)
{
    auto still = init();
    still->decodeFields(coder);
    still->m_ImageURL = coder.decodeUrl(kImageUrlKey);
    if (coder.error())
        return tl::unexpected(*coder.error());
    if (still->m_ImageURL)
        still->m_thumbnail = images.image(*still->m_ImageURL);
    return still;
}

void GXStill::drawInRect()
{
    m_screenSizeWidth = m_panelWidth;
    m_screenSizeHeight = m_panelHeight;
    m_renderedSize = {static_cast<double>(m_panelWidth), static_cast<double>(m_panelHeight)};
    if (m_thumbnail)
        m_thumbnail->setSize(*m_renderedSize);
}

ImageRef GXStill::picture() const
{
    if (!m_thumbnail || m_thumbnail->size() == m_renderedSize.value_or(m_thumbnail->size())) {
        m_picture = nullptr;
        return m_thumbnail;
    }
    if (!m_picture || m_picture->representations() != m_thumbnail->representations())
        m_picture = std::make_shared<Image>(*m_thumbnail);
    m_picture->setSize(*m_renderedSize);
    return m_picture;
}

ItemRef GXStill::copy() const
{
    auto copy = init();
    copyFieldsTo(*copy);
    copy->m_ImageURL = m_ImageURL;
    copy->m_renderedSize = m_renderedSize;
    copy->m_captions = m_captions;
    return copy;
}

void GXStill::encodeWithCoder(KeyedArchiver& coder) const
{
    GXItem::encodeWithCoder(coder);
    coder.encodeObject(m_ImageURL, kImageUrlKey);
}

} // namespace wallgrid
