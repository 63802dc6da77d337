#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "desktop/floor/server/FloorServer.h"
#include "tests/desktop/floor/page/PageSteps.h"
#include "tests/floor/FloorWorld.h"

namespace koru::test {

/// The page of the floor in a real browser. Counting 20 is being edited at the desk and served in this
/// process: the goods above, one line each, nothing counted.
class PageWorld : public FloorWorld {
 protected:
  PageWorld();

  /// Puts a further good into the counting.
  void AddGood(const PageGood& good);
  /// Puts a number of further goods into the counting, with barcodes that count from 7000000000001.
  void AddGoods(int number);
  /// Begins to serve; the desk keeps its port when it begins again.
  void Serve();
  /// Serves with other limits from now on.
  void ServeWithin(const FloorServerLimits& limits);
  /// Serves https too, on the port after that of http, as the desk does by default.
  void ServeSecurely();
  /// Serves what devices see as another counting, of a store "انبار دو", with the same goods and new codes.
  void ServeAnotherCounting();
  /// The program ends without warning and begins again.
  void KillDesk();
  void RestartDesk();

  [[nodiscard]] QString Url(int count, bool secure = false);
  /// Opens the page of a count on a device that has given its name, and waits until it shows the lines.
  void OpenPage(Browser& browser, int count = 1, const QString& name = QStringLiteral("رضا"));
  /// What the desk has of a good in a count.
  [[nodiscard]] QString AtDesk(const PageGood& good, int count = 1);
  void WaitForDesk(const PageGood& good, const QString& figure, int count = 1);
  /// Waits until the desk has a figure in the first count, and the page the answers to all.
  void WaitForArrival(Browser& browser, const PageGood& good, const QString& figure);
  /// Answers the question about the tea: its counter's figure is set, and arrives.
  void InsistOn(Browser& browser, const QString& figure);
  /// Counts a good, and waits for the arrival of the figure.
  void CountArrives(Browser& browser, const PageGood& good, const QString& figure);
  /// Waits until the desk lists the barcode that no line has.
  void WaitForUnlisted();
  /// Opens the page of a count anew, on a device that has opened one before.
  void OpenAnew(Browser& browser, int count);
  /// The desk gives the first count a new code; the device, connected again, opens the page of a count anew.
  void OpenWithNewCode(Browser& browser, int count = 1);
  /// Opens the page of a count in a second tab of the browser, which becomes the current one. Returns the
  /// tabs.
  QStringList OpenSecondTab(Browser& browser, int count = 1);

  /// The user at the desk deletes the first line, of the tea, or all lines.
  void DeleteTea();
  void DeleteAllLines();

  /// What the server is served with.
  [[nodiscard]] FloorServerSettings Settings() const;

  QTemporaryDir folder_;
  FloorServerLimits limits_;
  std::uint16_t port_ = 0;
  int rows_ = 0;
  std::string store_ = "انبار مركزي";
  std::string counting_ = "00000000000000a1";
  std::unique_ptr<FloorServer> server_;
};

}  // namespace koru::test
