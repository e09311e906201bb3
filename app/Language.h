#pragma once
#include "core/TextTwins.h"

// Titles of message boxes.
inline constexpr TTextTwins kInformationTitle{"Informacja", "Information", "Інформація"};
inline constexpr TTextTwins kWarningTitle{"Ostrzeżenie", "Warning", "Попередження"};
