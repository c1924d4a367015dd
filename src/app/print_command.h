#pragma once

#include "main_services.h"
#include "radio_image.h"

class QWidget;

namespace mr4500x {

class EditorPanel;

// Asks for the reports and prints what the editor shows. Only the embedded information comes from the image.
void PrintChosenReports(const MainServices& services, EditorPanel& panel, const RadioImage& image, QWidget* window);

} // namespace mr4500x
