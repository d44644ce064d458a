# Writes OUTPUT, a C++ source defining FUNCTION() as a std::string_view of INPUT's bytes, so a file
# of the source tree is compiled in without a second copy to keep in step. The file is rewritten only
# when its content changes.
file(READ ${INPUT} hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
string(REGEX REPLACE "(('[^']*',){16})" "\\1\n    " bytes "${bytes}")
file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${INPUT})
file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT "// Generated from @name@; do not edit.
#include <string_view>

namespace {
constexpr char kBytes[] = {
    @bytes@};
} // namespace

std::string_view @FUNCTION@() {
    return {kBytes, sizeof kBytes};
}
")
