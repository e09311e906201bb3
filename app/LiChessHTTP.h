#pragma once
// The connection to the online tablebase: one shared libcurl handle (its connection kept
// alive between requests) behind a mutex, a request per query, time-outs, and pacing. The
// public service takes about one request a second; after "429 Too Many Requests", or a
// request that got no answer at all, the next request waits a full minute.
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <set>
#include <string>

#include "app/LiChess.h"
#include "app/Options.h"

struct TLiChessSettings {
  std::string scheme = "https";
  std::string host = "tablebase.lichess.ovh";  // may carry a port: "localhost:9000"
  std::chrono::milliseconds connectTimeout{5000};
  std::chrono::milliseconds totalTimeout{10000};  // a slow answer holds up the solve
  std::chrono::milliseconds minInterval{1000};    // between the starts of two requests
  std::chrono::milliseconds tooManyRequestsWait{60000};
  // An answer is a few kilobytes; a larger one is refused before it can fill the memory.
  std::size_t nMaxAnswerBytes = std::size_t{1} << 20;
  bool bWarnOnRepetition = false;  // a position fetched again is reported
};

// Scheme and host from options.ini, the repetition warning as the settings ask.
TLiChessSettings LiChessSettingsFromOptions(const COptions& options);

// What one request brought.
struct TLiChessPage {
  long nStatus = 0;      // the HTTP status, 0 without an answer
  std::string body{};    // what the parser reads: empty unless the request succeeded
  std::string sError{};  // why the request failed; empty when it succeeded
  bool Succeeded() const { return sError.empty(); }
};

inline constexpr const char* kNoInternetConnectionText = "No internet connection";
inline constexpr const char* kPageExceptionText = "Exception occurred in GetHTMLPage()";
// Only the configured service is asked: its scheme must be http or https and its host a plain
// name or address with an optional port, and redirects, which could lead elsewhere, are not
// followed.
inline constexpr const char* kRefusedAddressText = "Tablebase address refused: ";
inline constexpr const char* kAnswerTooLargeText = "Tablebase answer too large";

class CLiChessHTTP {
 public:
  using TMessageSink = std::function<void(const std::string& message)>;

  explicit CLiChessHTTP(TLiChessSettings settings, TMessageSink messages = {});
  ~CLiChessHTTP();
  CLiChessHTTP(const CLiChessHTTP&) = delete;
  CLiChessHTTP& operator=(const CLiChessHTTP&) = delete;

  // The address of a path on the service.
  std::string Address(const std::string& path) const;
  // Requests a path ("standard?fen=..."), waiting first for its turn. A failed request, a
  // status other than 200 and a cut-off body give an empty body and the reason.
  TLiChessPage GetHTMLPage(const std::string& path);
  // The answer for a position given as FEN, and the page it came from.
  CLiChess Query(const std::string& fen, TLiChessPage* page = nullptr);
  // How long a request made now would wait for its turn.
  std::chrono::steady_clock::duration TimeUntilNextRequest() const;
  const TLiChessSettings& Settings() const { return settings; }

  // The FEN as the query path carries it.
  static std::string QueryPath(const std::string& fen);
  // Whether the settings name a service the client may ask (see kRefusedAddressText).
  static bool IsAcceptedAddress(const TLiChessSettings& settings);

 private:
  TLiChessPage Fetch(const std::string& path);

  const TLiChessSettings settings;
  const TMessageSink messages;
  mutable std::mutex connectionMutex;  // guards the handle and the members below
  void* handle = nullptr;              // the libcurl easy handle; null without a connection
  std::chrono::steady_clock::time_point nextRequest{};
  std::set<std::string> fetched;  // positions answered so far, for the repetition warning
};

// The process's connection, once OpenLiChessService has run; null before (and so in every
// test): the search then goes on without the tablebase.
CLiChessHTTP* LiChessService();
void OpenLiChessService(const TLiChessSettings& settings, CLiChessHTTP::TMessageSink messages);
