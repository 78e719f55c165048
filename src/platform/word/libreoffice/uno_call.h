#pragma once

#include <QString>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <exception>
#include <rtl/ustring.hxx>

namespace platform {

namespace css = com::sun::star;

// Runs `work`, which gives a bool. False when it throws: LibreOffice has ended, or refuses.
template <typename Work>
bool Succeeds(Work work) {
    try {
        return work();
    } catch (const css::uno::Exception&) {
        return false;
    } catch (const std::exception&) {
        return false;
    }
}

inline rtl::OUString ToUno(const QString& text) {
    return rtl::OUString(reinterpret_cast<const sal_Unicode*>(text.utf16()), sal_Int32(text.size()));
}

inline css::beans::PropertyValue Argument(const char* name, const css::uno::Any& value) {
    css::beans::PropertyValue argument;
    argument.Name = rtl::OUString::createFromAscii(name);
    argument.Value = value;
    return argument;
}

// The values as a sequence of LibreOffice.
template <typename First, typename... More>
css::uno::Sequence<First> SequenceOf(const First& first, const More&... more) {
    const First values[] = {first, more...};
    return css::uno::Sequence<First>(values, 1 + sizeof...(more));
}

} // namespace platform
