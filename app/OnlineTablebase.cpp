#include "app/OnlineTablebase.h"

#include "core/Fen.h"
#include "core/MoveGeneration.h"

COnlineTablebase::COnlineTablebase(CLiChessHTTP* liChessService, CLiChessCache& answers)
    : service(liChessService), cache(answers) {}

bool COnlineTablebase::CanHold(const TChessboard& board) {
  int nPieces = 2;
  for (const std::uint8_t count : board.nPieces) nPieces += count;
  return nPieces <= kMaxPieces && movegen::CastlingRights(board) == 0;
}

std::optional<CLiChess> COnlineTablebase::Answer(const TChessboard& board) {
  if (!CanHold(board)) return std::nullopt;
  const std::string fen = fen::WriteFullFen(board);
  const std::lock_guard lock(mutex);
  if (auto known = cache.Find(fen)) return known;
  if (service == nullptr || failed.contains(fen) || service->TimeUntilNextRequest() > kMaxWait)
    return std::nullopt;
  TLiChessPage page;
  const CLiChess answer = service->Query(fen, &page);
  if (!page.Succeeded()) {
    failed.insert(fen);
    return std::nullopt;
  }
  cache.Store(fen, answer);
  return answer;
}

std::vector<TMove> COnlineTablebase::MovesThatCannotWin(const TChessboard& board) {
  std::vector<TMove> moves;
  const auto answer = Answer(board);
  if (!answer) return moves;
  for (const CLiChessMove& move : answer->moves) {
    // Each move is valued for the side that moves next: Black's draw or win is no win of
    // White's.
    if (move.value != lichess::kDraw && move.value != lichess::kWin) continue;
    moves.push_back(
        TMove{.from = move.from, .to = move.to, .promotion = move.promotion, .spare = 0});
  }
  return moves;
}

int TablebaseLevels(int nProblemLevels, int nSettingLevels) {
  return nProblemLevels != 0 ? nProblemLevels : nSettingLevels;
}

std::optional<std::string> TablebaseLevelsRefusal(long long nLevelsField,
                                                  const std::string& serviceAddress) {
  if (nLevelsField >= kMinTablebaseLevels && nLevelsField <= kMaxTablebaseLevels)
    return std::nullopt;
  return "Invalid number of levels of analysis with solutions dowanloaded from " + serviceAddress +
         " (min=-1, max=" + std::to_string(kMaxTablebaseLevels) + ")";
}
