#include "base/field_reader.h"

#include "base/failure.h"
#include "base/numbers.h"

#include <algorithm>

namespace base {

Text FieldReader::text() {
    if (at_ >= text_.size())
        throw Failure("Input past end of file");
    at_ = std::min(text_.find_first_not_of(u" \t", at_), text_.size());
    Text field;
    if (at_ < text_.size() && text_[at_] == u'"') {
        const auto close = text_.find(u'"', at_ + 1);
        field = text_.substr(at_ + 1, close == Text::npos ? close : close - at_ - 1);
        at_ = close == Text::npos ? text_.size() : close + 1;
        at_ = std::min(text_.find_first_of(u",\r\n", at_), text_.size());
    } else {
        const auto end = std::min(text_.find_first_of(u",\r\n", at_), text_.size());
        field = text_.substr(at_, end - at_);
        at_ = end;
    }
    at_ += text_.compare(at_, 2, u"\r\n") == 0 ? 2 : 1;
    return field;
}

std::int16_t FieldReader::int16() {
    return toInt16(val(text()));
}

} // namespace base
