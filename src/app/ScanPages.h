#pragma once

#include "app/Commands.h"

namespace pulselark {

/// The writers of the command `scan`, drawn by the toolkit without a display. The toolkit starts with the
/// first page that is written.
PageWriters PagesOfToolkit(int argc, char** argv);

} // namespace pulselark
