#pragma once
// The layout readers behind the record import entry: each one tells its layout from the
// content and reads it.
#include "compute/import/record_text.h"

namespace tv::compute::import_detail {

bool looks_like_peer_at2(const SourceText& source);
Outcome read_peer_at2(const SourceText& source);

bool looks_like_bhrc_v1(const SourceText& source);
Outcome read_bhrc_v1(const SourceText& source);

bool looks_like_knet(const SourceText& source);
Outcome read_knet(const SourceText& source);

bool looks_like_esm(const SourceText& source);
Outcome read_esm(const SourceText& source);

bool looks_like_cdmg_v2(const SourceText& source);
Outcome read_cdmg_v2(const SourceText& source);

bool looks_like_cosmos_v2(const SourceText& source);
Outcome read_cosmos_v2(const SourceText& source);

bool looks_like_usgs_smc(const SourceText& source);
Outcome read_usgs_smc(const SourceText& source);

bool looks_like_two_column(const SourceText& source);
Outcome read_two_column(const SourceText& source);

}  // namespace tv::compute::import_detail
