// SPDX-License-Identifier: MIT
#include "platform/zeroed_pages.h"

#include "platform/pages.h"

#include <new>
#include <utility>

namespace wallgrid {

ZeroedPages::ZeroedPages(std::size_t size)
    : m_data(mapPages(wholePages(size)))
    , m_size(wholePages(size))
{
    if (!m_data)
        throw std::bad_alloc();
}

ZeroedPages::ZeroedPages(ZeroedPages&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr))
    , m_size(std::exchange(other.m_size, 0))
{
}

ZeroedPages& ZeroedPages::operator=(ZeroedPages&& other) noexcept
{
    ZeroedPages released(std::move(*this));
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    return *this;
}

ZeroedPages::~ZeroedPages()
{
    if (m_data)
        unmapPages(m_data, m_size);
}

} // namespace wallgrid
