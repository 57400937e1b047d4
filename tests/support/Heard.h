#pragma once

#include "support/FakePlatform.h"
#include "support/LinkBytes.h"

#include <string>

namespace pulselark {

/// What the partners have heard since the last call. Each command by its number, with its first value after a
/// colon unless it is 0; "=" and the number for a value, "[255]" for an array.
inline std::string Heard(FakePartners& partners) {
    std::string text;
    for (const FakePartners::Message& message : partners.Sent) {
        const double magic = DoubleAt(message.Payload, 0);
        const double second = DoubleAt(message.Payload, 1);
        const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
        text += text.empty() ? "" : " ";
        if (magic == 12345678)
            text += "=" + number(second);
        else if (magic == 89898989)
            text += "[" + std::to_string(message.Payload.size() / 8 - 2) + "]";
        else if (const double p1 = DoubleAt(message.Payload, 2); p1 != 0)
            text += number(second) + ":" + number(p1);
        else
            text += number(second);
    }
    partners.Sent.clear();
    return text;
}

} // namespace pulselark
