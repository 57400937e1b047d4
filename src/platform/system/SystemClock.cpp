#include "platform/system/SystemClock.h"

#include <array>
#include <chrono>
#include <clocale>
#include <ctime>
#include <langinfo.h>
#include <memory>
#include <string_view>
#include <type_traits>

namespace pulselark {

namespace {

struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

// The user's locale for times, or nothing where there is none to speak of.
Locale TimeLocale() {
    Locale locale(newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr));
    // The bare locale writes 11/21/26, in which nobody can tell the day from the month.
    constexpr std::string_view BareDate = "%m/%d/%y";
    if (locale != nullptr && nl_langinfo_l(D_FMT, locale.get()) == BareDate)
        locale = nullptr;
    return locale;
}

std::string Formatted(const char* format, const Locale& locale) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 128> text{};
    const std::size_t size = locale != nullptr
                                 ? strftime_l(text.data(), text.size(), format, &parts, locale.get())
                                 : std::strftime(text.data(), text.size(), format, &parts);
    return {text.data(), size};
}

} // namespace

std::int64_t SystemClock::Milliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

double SystemClock::FineMilliseconds() {
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

std::string SystemClock::LocalDate() {
    const Locale locale = TimeLocale();
    return Formatted(locale != nullptr ? "%x" : "%d/%m/%Y", locale);
}

std::string SystemClock::LocalTime() {
    const Locale locale = TimeLocale();
    const std::string_view whole = locale != nullptr ? nl_langinfo_l(T_FMT, locale.get()) : "";
    const bool halfDays =
        whole.find("%p") != std::string_view::npos || whole.find("%r") != std::string_view::npos;
    return Formatted(halfDays ? "%I:%M %p" : "%H:%M", locale);
}

std::string SystemClock::Stamp() {
    return Formatted("%Y%m%d-%H%M%S", nullptr);
}

} // namespace pulselark
