#include "desktop/services/standard_words.h"

#include "desktop/qt/conversions.h"

#include <string_view>

namespace desktop {

QString StandardWords::translate(const char* context, const char* sourceText, const char* disambiguation,
                                 int n) const {
    const QMutexLocker alone(&reading_);
    if (shown_ != fileLingua_)
        read(fileLingua_);
    if (const auto own = ownWords_.find(base::fromUtf8(sourceText)); own != ownWords_.end())
        return qstring(base::TextView(own->second));
    const QString word = catalogue_.translate(context, sourceText, disambiguation, n);
    // Since Qt 6, the names of file kinds have a new context; the catalogues still use the old one.
    return word.isNull() && std::string_view(context) == "QAbstractFileIconProvider"
               ? catalogue_.translate("QFileDialog", sourceText, disambiguation, n)
               : word;
}

void StandardWords::read(const base::Text& name) const {
    shown_ = name;
    const base::Text stem = folder_.languages(name.substr(0, name.rfind(u'.')));
    // If it cannot be loaded, there is simply no catalogue.
    static_cast<void>(catalogue_.load(qstring(stem) + QStringLiteral(".qm")));
    ownWords_ = lang::readWordList(stem + u".words");
}

} // namespace desktop
