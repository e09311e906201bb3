#pragma once
// The online tablebase as the search sees it: for a position of at most seven pieces
// without castling rights, the answer kept for the problem or else fetched from the
// service, and from it the White moves that cannot win. Every failure is an unknown answer
// and the solve goes on; a failed position is not asked again during this solve, and while
// the service makes us wait (after "too many requests" or no answer) nothing is asked.
#include <chrono>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "app/LiChessCache.h"
#include "app/LiChessHTTP.h"
#include "engine/WhiteMoveAdvice.h"

class COnlineTablebase : public CWhiteMoveAdvice {
 public:
  // The service's tables hold positions of up to seven pieces, kings included.
  static constexpr int kMaxPieces = 7;
  // A lookup that would wait longer than this for its turn (after "too many requests") is
  // not made: the search does not stall for it.
  static constexpr std::chrono::seconds kMaxWait{3};

  // Without a service (null) only the answers kept in the cache are known.
  COnlineTablebase(CLiChessHTTP* service, CLiChessCache& cache);

  std::vector<TMove> MovesThatCannotWin(const TChessboard& board) override;
  // The answer for a position the service can hold; nothing when unknown.
  std::optional<CLiChess> Answer(const TChessboard& board);

  static bool CanHold(const TChessboard& board);

 private:
  CLiChessHTTP* const service;
  CLiChessCache& cache;
  std::mutex mutex;  // one lookup at a time: the service answers one request at a time anyway
  std::set<std::string> failed;
};

// The number of White-move levels a problem's solve asks the tablebase at: the problem's
// own LICHESSLEVELS when it gives one, else the setting; 0 or less means none.
int TablebaseLevels(int nProblemLevels, int nSettingLevels);

// The bounds of the LichessLevels field of the options dialog: -1 (off even in the window)
// up to a depth whose lookups a solve can still afford at about one a second.
inline constexpr int kMinTablebaseLevels = -1;
inline constexpr int kMaxTablebaseLevels = 10;
// Why the options dialog refuses a level count, naming the service's address; nothing when
// the count is within the bounds.
std::optional<std::string> TablebaseLevelsRefusal(long long nLevelsField,
                                                  const std::string& serviceAddress);
