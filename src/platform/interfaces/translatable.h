// Marks a text that a window shows, for the catalogue of translatable texts. Without effect here: the window looks the
// text up in the user's language; tests and the command line have the original.
#pragma once

// At the level of the namespace or in a free function, where the catalogue keeps it under "mr4500x".
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): what gathers the texts reads sources, and knows nothing else
#define SHOWN(text) text
