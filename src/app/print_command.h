// The print command: the reports that the user chooses, of what the editor shows.
#pragma once

#include "main_services.h"
#include "radio_image.h"

class QWidget;

namespace mr4500x {

class EditorPanel;

// Of the image only the embedded information is printed, which the editor's controls do not show.
void PrintChosenReports(const MainServices& services, EditorPanel& panel, const RadioImage& image, QWidget* window);

} // namespace mr4500x
