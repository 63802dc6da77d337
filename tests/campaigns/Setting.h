#pragma once

#include <cstdlib>
#include <string>

namespace koru::test {

/// How long and with which seed a campaign runs. KORU_CAMPAIGN_TIMES multiplies the rounds of every campaign
/// (1 unless it is set); KORU_CAMPAIGN_SEED is its first seed (1 unless it is set), and replays one where the
/// times are 1. docs/campaigns.md says what each round is.
struct CampaignSetting {
  unsigned times = FromEnvironment("KORU_CAMPAIGN_TIMES", 1);
  unsigned seed = FromEnvironment("KORU_CAMPAIGN_SEED", 1);

  static unsigned FromEnvironment(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::stoul(text));
  }
};

}  // namespace koru::test
