#pragma once

#include <QStringList>

namespace pulselark {

/// The families of the program's texts, the first that is installed. Roboto's figures are all one width, so
/// numbers stand still while they change.
inline QStringList FontFamilies() {
    return {"Roboto", "Noto Sans", "Noto Sans CJK JP", "DejaVu Sans"};
}

} // namespace pulselark
