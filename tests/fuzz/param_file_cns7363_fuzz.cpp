// Parameter files of the CNS7363: tag line, header, 18 rows of six bytes.
#include "ParamFileFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    param_file_fuzz::Import<Cns7363ParamTable>(param_file_fuzz::DistinctChip(302), data, size, true);
    return 0;
}
