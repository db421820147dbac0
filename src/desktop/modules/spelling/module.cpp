// Entry point of this module. It is loaded when spelling is switched on, because Enchant pulls in the
// libraries of every kind of dictionary.
#include "enchant_spelling.h"

// The caller owns the object. Requires a QCoreApplication.
extern "C" Q_DECL_EXPORT platform::Spelling* quillmere_spelling() {
    return new desktop::EnchantSpelling;
}
