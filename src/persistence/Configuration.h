#pragma once

#include <string>
#include <vector>

/// Loading and saving the layout of the screen.
namespace pulselark {

inline constexpr int DefaultConfig = -3;  ///< `defConfig.htc`, which ships
inline constexpr int PreviousConfig = -2; ///< `prevConfig.htc`, the layout of the last run
inline constexpr int ChosenConfig = -1;   ///< a file that the user chooses

/// The configurations of the config folder, names without the folder, sorted; start empty.
extern std::vector<std::string> fileList;

/// Lists the folder anew. A folder that cannot be listed has no configurations.
void RefreshConfigList();

/// Loads a configuration: one of the three above, or entry `which` of `fileList`. A cancelled dialog changes
/// nothing. After a failure the built-in layout is in force, and the user has been told. In training, which
/// the first of the three ends, no file is read.
void LoadConfig(int which);

/// Saves the layout as `PreviousConfig`, or else under a name that the user chooses, and lists the folder
/// anew. A failure is told, a cancelled dialog is none.
void SaveConfig(int which);

/// Reads entry `index` of `fileList` into `ConfigPreview`. A failure is told.
void LoadConfigPreview(int index);

/// The same in eighths, for a picture: the window of a wide screen has more twips than 16 bits, and its
/// layout is no failure.
void LoadConfigPicture(int index);

} // namespace pulselark
