// SPDX-License-Identifier: MIT
#include "base/typed_number.h"

#include <initializer_list>
#include <limits>
#include <numeric>

namespace wallgrid {

namespace {

/// In lowest terms, with a denominator above 0.
struct Fraction {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
};

using Result = tl::expected<Fraction, NumberFault>;

Result fail(NumberFault fault)
{
    return tl::unexpected(fault);
}

Result added(const Fraction& a, const Fraction& b)
{
    std::int64_t left = 0;
    std::int64_t right = 0;
    Fraction sum;
    if (__builtin_mul_overflow(a.numerator, b.denominator, &left) ||
        __builtin_mul_overflow(b.numerator, a.denominator, &right) ||
        __builtin_add_overflow(left, right, &sum.numerator) ||
        __builtin_mul_overflow(a.denominator, b.denominator, &sum.denominator) ||
        sum.numerator == std::numeric_limits<std::int64_t>::min()) // which has no opposite
        return fail(NumberFault::TooLarge);
    const std::int64_t common = std::gcd(sum.numerator, sum.denominator);
    return Fraction{sum.numerator / common, sum.denominator / common};
}

Result multiplied(const Fraction& a, const Fraction& b)
{
    const std::int64_t one = std::gcd(a.numerator, b.denominator);
    const std::int64_t other = std::gcd(b.numerator, a.denominator);
    Fraction product;
    if (__builtin_mul_overflow(a.numerator / one, b.numerator / other, &product.numerator) ||
        __builtin_mul_overflow(a.denominator / other, b.denominator / one, &product.denominator) ||
        product.numerator == std::numeric_limits<std::int64_t>::min())
        return fail(NumberFault::TooLarge);
    return product;
}

Fraction opposite(const Fraction& fraction)
{
    return {-fraction.numerator, fraction.denominator};
}

Result divided(const Fraction& a, const Fraction& b)
{
    if (b.numerator == 0)
        return fail(NumberFault::DividesByZero);
    const Fraction inverse{b.denominator, b.numerator};
    return multiplied(a, inverse.denominator < 0 ? Fraction{-inverse.numerator, -inverse.denominator} : inverse);
}

/// Reads by descent. It is never deeper than the text is long, which is bounded.
class Sum {
public:
    explicit Sum(std::u16string_view text)
        : m_rest(text)
    {
    }

    bool take(std::u16string_view sign)
    {
        skipBlanks();
        if (!m_rest.starts_with(sign))
            return false;
        m_rest.remove_prefix(sign.size());
        return true;
    }

    Result whole()
    {
        Result result = terms();
        skipBlanks();
        return result && !m_rest.empty() ? fail(NumberFault::Unreadable) : result;
    }

private:
    Result terms()
    {
        Result result = factors();
        while (result) {
            const bool plus = take(u"+");
            if (!plus && !takeOneOf({u"-", u"\u2212"}))
                break;
            const Result next = factors();
            result = next ? added(*result, plus ? *next : opposite(*next)) : next;
        }
        return result;
    }

    Result factors()
    {
        Result result = factor();
        while (result) {
            const bool times = takeOneOf({u"*", u"x", u"X", u"\u00D7"});
            if (!times && !takeOneOf({u"/", u"\u00F7"}))
                break;
            const Result next = factor();
            if (next)
                result = times ? multiplied(*result, *next) : divided(*result, *next);
            else
                result = next;
        }
        return result;
    }

    Result factor()
    {
        if (takeOneOf({u"-", u"\u2212"})) {
            const Result result = factor();
            return result ? opposite(*result) : result;
        }
        if (!take(u"("))
            return number();
        const Result result = terms();
        if (!result || take(u")"))
            return result;
        return fail(m_rest.empty() ? NumberFault::Unfinished : NumberFault::Unreadable);
    }

    Result number()
    {
        if (m_rest.empty())
            return fail(NumberFault::Unfinished);
        if (!startsWithDigit())
            return fail(NumberFault::Unreadable);
        Fraction result;
        for (; startsWithDigit(); m_rest.remove_prefix(1)) {
            if (__builtin_mul_overflow(result.numerator, 10, &result.numerator) ||
                __builtin_add_overflow(result.numerator, m_rest.front() - u'0', &result.numerator))
                return fail(NumberFault::TooLarge);
        }
        take(u"px");
        return result;
    }

    bool startsWithDigit() const { return !m_rest.empty() && m_rest.front() >= u'0' && m_rest.front() <= u'9'; }

    bool takeOneOf(std::initializer_list<std::u16string_view> signs)
    {
        for (const std::u16string_view sign : signs) {
            if (take(sign))
                return true;
        }
        return false;
    }

    void skipBlanks()
    {
        while (!m_rest.empty() && (m_rest.front() == u' ' || m_rest.front() == u'\t' || m_rest.front() == u'\u00A0'))
            m_rest.remove_prefix(1);
    }

    std::u16string_view m_rest;
};

std::int64_t roundedDown(const Fraction& fraction)
{
    const bool below = fraction.numerator < 0 && fraction.numerator % fraction.denominator != 0;
    return fraction.numerator / fraction.denominator - (below ? 1 : 0);
}

} // namespace

tl::expected<TypedNumber, NumberFault> readTypedNumber(std::u16string_view text)
{
    if (text.size() > kLongestTypedNumber)
        return tl::unexpected(NumberFault::TooLong);
    Sum sum(text);
    const bool less = sum.take(u"-=");
    const bool relative = less || sum.take(u"+=") || sum.take(u"+");
    const Result result = sum.whole();
    if (!result)
        return tl::unexpected(result.error());
    const std::int64_t value = roundedDown(less ? opposite(*result) : *result);
    using Limits = std::numeric_limits<std::int32_t>;
    if (value < Limits::min() || value > Limits::max())
        return tl::unexpected(NumberFault::TooLarge);
    return TypedNumber{static_cast<std::int32_t>(value), relative};
}

} // namespace wallgrid
