// Parameter files of the MBI5292: tag line, a "Register Count" header that says how many rows of
// eight bytes follow, blank lines between them skipped.
#include "ParamFileFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    param_file_fuzz::Import<Mbi5292ParamTable>(param_file_fuzz::DistinctChip(521), data, size, true);
    return 0;
}
