#pragma once

namespace aids {

// What the program does by itself while the user types.
struct TypingOptions {
    bool expand = true;    // abbreviations
    bool complete = false; // offers long words of the document
    bool quotes = false;   // writes the quotation marks of the language
    bool dashes = false;   // writes a dash for two hyphens
};

} // namespace aids
