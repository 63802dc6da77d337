#pragma once

#include <string>

namespace koru {

class HostSession;

/// Takes the automatic backup that the settings ask for before a final registration on the database of that
/// connection text, and removes the oldest ones. Where it fails or is cancelled, the user is asked whether
/// the registration continues. False: it does not begin.
[[nodiscard]] bool BackUpBeforeRegistration(HostSession& session, const std::string& connection);

}  // namespace koru
