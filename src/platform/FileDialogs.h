#pragma once

#include <optional>
#include <string>

namespace pulselark {

/// The common file dialogs. `start` is a folder or a file whose folder is shown; `filter` has the form
/// "Name of the type (*.ext)|*.ext". Nothing comes back from a cancelled dialog.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    virtual std::optional<std::string> ChooseFileToOpen(const std::string& start,
                                                        const std::string& filter) = 0;
    /// The name comes back with the type's extension if the user gave none. Replacing a file has been agreed
    /// to.
    virtual std::optional<std::string> ChooseFileToSave(const std::string& start,
                                                        const std::string& filter) = 0;
};

} // namespace pulselark
