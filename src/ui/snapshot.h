#pragma once
// Pictures of every screen without showing a window, for checking the look.
#include <filesystem>

class QWidget;

namespace kestrin::ui {

// Draws a widget into a PNG file once pending events have run; a file that
// can't be written is told on standard error and gives false.
bool savePicture(QWidget& widget, const std::filesystem::path& file);

// Loads the game, renders each screen at 1280x800 into outDir/<screen>.png
// and returns the program's exit code. Messages go to standard error and
// questions are answered No, so nothing on disk changes.
int renderSnapshots(const std::filesystem::path& gameFolder, const std::filesystem::path& outDir);

}  // namespace kestrin::ui
