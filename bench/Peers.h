#pragma once

#include "RemotePlayer.h"

#include <filesystem>
#include <vector>

namespace mireval::bench {

/// The players that ours is compared with. They keep what they need in `folder`, and play its files
/// PreviewAudio/focus-1.m4a and focus-2.m4a.
std::vector<RemotePlayer::Description> describePeers(const std::filesystem::path& folder);

}  // namespace mireval::bench
