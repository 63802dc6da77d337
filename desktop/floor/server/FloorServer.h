#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "floor/FloorSession.h"

namespace koru {

/// What devices may take of the desk. The default values suit a shop; tests choose smaller ones.
struct FloorServerLimits {
  unsigned connections = 256;  ///< at a time, for http and for https
  /// Of them from one address. Devices after a router that translates addresses have one in common, and each
  /// page has up to three connections: some 40 devices, and half of all is left to other addresses.
  unsigned connectionsOfAddress = 128;
  std::size_t requestsOfAddress = 500;  ///< in a second; the next ones are answered with 429
  std::size_t devices = 200;            ///< that take part in a session
  std::size_t unknownBarcodes = 1000;   ///< that the desk has not seen to

  std::chrono::milliseconds request{10'000};  ///< from the first line of a request to its end
  std::chrono::milliseconds answer{60'000};   ///< until the device has read the answer
  std::chrono::milliseconds idle{60'000};     ///< a connection without a request
  std::chrono::milliseconds poll{25'000};     ///< a request for changes while nothing changes
  std::chrono::milliseconds gather{20};       ///< changes that come together are sent together
  std::chrono::milliseconds command{30};      ///< between two looks whether a command has ended
  /// Of work for devices before the desk has its turn: for what they send, and again for those that wait for
  /// changes.
  std::chrono::milliseconds round{8};
};

struct FloorServerSettings {
  std::uint16_t port = 47815;        ///< of http; 0 takes a free one
  std::uint16_t securePort = 47816;  ///< of https; 0 takes a free one
  std::filesystem::path folder;      ///< keeps certificate and key, readable by the user of the machine alone
  /// Names and addresses by which devices reach this machine, the likeliest first. 127.0.0.1 and localhost
  /// are served besides. SetAddresses gives others.
  std::vector<std::string> addresses;
  std::string store;  ///< the name of the counting's store, for counters
  /// Distinguishes the counting from all others: devices send no figure of one to another. Says nothing else
  /// to them. Empty: devices keep figures of earlier codes apart from those of this one.
  std::string counting;
  FloorServerLimits limits;
};

/// Serves the page of the floor and what it asks of a session, by HTTP, from the event loop of the thread
/// that made it. While a command is at work at the desk, nothing is read. What devices did is on the disk
/// before they have the answer. A thread syncs it, once for all requests of a turn, and the event loop does
/// not wait for the disk; requests that would add to the journal meanwhile wait for the next turn.
class FloorServer {
 public:
  /// Listens on http. Throws InputError when it cannot. The session must outlive the server; it may end.
  /// Listeners to the session's events must not destroy the server, and not run an event loop in which that
  /// can happen: they are called in the middle of its work.
  FloorServer(FloorSession& session, FloorServerSettings settings);
  FloorServer(const FloorServer&) = delete;
  FloorServer& operator=(const FloorServer&) = delete;
  /// Writes what was decided and acknowledges it; of a request of which some figures were decided, the others
  /// are paused. Devices that wait for changes hear that the session has ended, unless its form was closed.
  /// No other request is answered.
  ~FloorServer();

  /// Listens on https too, for cameras; makes the certificate when there is none that serves. Does nothing
  /// when it listens already. Throws InputError when it cannot.
  void OpenSecure();
  [[nodiscard]] bool IsSecure() const;

  /// The machine has other names and addresses by now: devices reach it by these alone. Https that listens
  /// already keeps its certificate; the next OpenSecure makes one for them.
  void SetAddresses(std::vector<std::string> addresses);

  /// The ports that devices reach; the second is 0 without https.
  [[nodiscard]] std::uint16_t Port() const;
  [[nodiscard]] std::uint16_t SecurePort() const;
  /// Names and addresses by which devices reach this machine, the likeliest first.
  [[nodiscard]] const std::vector<std::string>& Addresses() const;
  /// What a counter opens: http://ADDRESS:PORT/#CODE, for a count 1 to 3.
  [[nodiscard]] std::string Url(int count, const std::string& address, bool secure = false) const;

 private:
  class Service;
  std::unique_ptr<Service> service_;
};

}  // namespace koru
