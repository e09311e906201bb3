#include "app/LiChessHTTP.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

// libcurl's global state is set up once, before the first handle, and kept to the end.
void InitialiseCurlOnce() {
  static const bool bInitialised = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  (void)bInitialised;
}

// The body of one answer, cut off at the settings' limit even when the service announced no
// length (or a false one).
struct TAnswerBuffer {
  std::string text{};
  std::size_t nLimit = 0;
  bool bTooLarge = false;
};

size_t AppendChunk(char* data, size_t size, size_t count, void* target) {
  auto& buffer = *static_cast<TAnswerBuffer*>(target);
  const size_t n = size * count;
  if (n > buffer.nLimit - buffer.text.size()) {
    buffer.bTooLarge = true;
    return 0;  // libcurl ends the transfer with a write error
  }
  try {
    buffer.text.append(data, n);
  } catch (...) {
    return 0;
  }
  return n;
}

bool IsHostCharacter(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '.' || c == ':' || c == '[' || c == ']';
}

bool IsUnreserved(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_' || c == '.' || c == '~' || c == '/';
}

}  // namespace

TLiChessSettings LiChessSettingsFromOptions(const COptions& options) {
  TLiChessSettings settings;
  settings.scheme = options.sLichessScheme;
  settings.host = options.sLichessHost;
  settings.bWarnOnRepetition = options.bWarningOnLichessDataRepetition;
  return settings;
}

CLiChessHTTP::CLiChessHTTP(TLiChessSettings liChessSettings, TMessageSink messageSink)
    : settings(std::move(liChessSettings)), messages(std::move(messageSink)) {
  InitialiseCurlOnce();
  const std::lock_guard lock(connectionMutex);
  handle = curl_easy_init();
  if (handle == nullptr) return;
  CURL* curl = static_cast<CURL*>(handle);
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);  // time-outs without signals, from any thread
  curl_easy_setopt(curl, CURLOPT_USERAGENT, "Longmate/0.1");
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS,
                   static_cast<long>(settings.connectTimeout.count()));
  curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, static_cast<long>(settings.totalTimeout.count()));
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, AppendChunk);
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 0L);
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_MAXFILESIZE_LARGE,
                   static_cast<curl_off_t>(settings.nMaxAnswerBytes));
}

bool CLiChessHTTP::IsAcceptedAddress(const TLiChessSettings& settings) {
  return (settings.scheme == "http" || settings.scheme == "https") && !settings.host.empty() &&
         std::ranges::all_of(settings.host,
                             [](char c) { return IsHostCharacter(static_cast<unsigned char>(c)); });
}

CLiChessHTTP::~CLiChessHTTP() {
  const std::lock_guard lock(connectionMutex);
  if (handle != nullptr) curl_easy_cleanup(static_cast<CURL*>(handle));
}

std::string CLiChessHTTP::Address(const std::string& path) const {
  return settings.scheme + "://" + settings.host + "/" + path;
}

std::string CLiChessHTTP::QueryPath(const std::string& fen) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string path = "standard?fen=";
  for (const char c : fen) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsUnreserved(byte)) {
      path += c;
    } else {
      path += '%';
      path += kHex[byte >> 4];
      path += kHex[byte & 15];
    }
  }
  return path;
}

Clock::duration CLiChessHTTP::TimeUntilNextRequest() const {
  const std::lock_guard lock(connectionMutex);
  return std::max(Clock::duration::zero(), nextRequest - Clock::now());
}

TLiChessPage CLiChessHTTP::GetHTMLPage(const std::string& path) {
  const std::lock_guard lock(connectionMutex);
  if (handle == nullptr)
    return {.body = kNoInternetConnectionText, .sError = kNoInternetConnectionText};
  if (!IsAcceptedAddress(settings)) {
    const std::string refusal = kRefusedAddressText + Address("");
    return {.body = refusal, .sError = refusal};
  }
  std::this_thread::sleep_until(nextRequest);
  TLiChessPage page;
  try {
    page = Fetch(path);
  } catch (...) {
    page = {.body = kPageExceptionText, .sError = kPageExceptionText};
  }
  // "Too many requests", or no answer at all (the network or the service is down): the next
  // request waits the long pause, and lookups that cannot wait give up at once meanwhile.
  const bool bLongPause = page.nStatus == 429 || page.nStatus == 0;
  nextRequest = Clock::now() + (bLongPause ? settings.tooManyRequestsWait : settings.minInterval);
  return page;
}

TLiChessPage CLiChessHTTP::Fetch(const std::string& path) {
  CURL* curl = static_cast<CURL*>(handle);
  TLiChessPage page;
  TAnswerBuffer body{.nLimit = settings.nMaxAnswerBytes};
  const std::string address = Address(path);
  curl_easy_setopt(curl, CURLOPT_URL, address.c_str());
  curl_easy_setopt(curl, CURLOPT_HTTPGET, 1L);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);
  const CURLcode code = curl_easy_perform(curl);
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &page.nStatus);
  if (body.bTooLarge || code == CURLE_FILESIZE_EXCEEDED) {
    page.sError = kAnswerTooLargeText;
  } else if (code != CURLE_OK) {
    page.sError = curl_easy_strerror(code);
  } else if (page.nStatus != 200) {
    page.sError = "HTTP status " + std::to_string(page.nStatus);
  } else {
    page.body = std::move(body.text);
  }
  return page;
}

CLiChess CLiChessHTTP::Query(const std::string& fen, TLiChessPage* pagePassed) {
  TLiChessPage page = GetHTMLPage(QueryPath(fen));
  CLiChess answer = CLiChess::Parse(page.body);
  if (page.Succeeded()) {
    bool bRepeated = false;
    {
      const std::lock_guard lock(connectionMutex);
      bRepeated = !fetched.insert(fen).second;
    }
    if (bRepeated && settings.bWarnOnRepetition && messages)
      messages("Position fetched again from the online tablebase: " + fen);
  }
  if (pagePassed != nullptr) *pagePassed = std::move(page);
  return answer;
}

namespace {
std::unique_ptr<CLiChessHTTP>& ServiceSlot() {
  static std::unique_ptr<CLiChessHTTP> service;
  return service;
}
}  // namespace

CLiChessHTTP* LiChessService() {
  return ServiceSlot().get();
}

void OpenLiChessService(const TLiChessSettings& settings, CLiChessHTTP::TMessageSink messages) {
  ServiceSlot() = std::make_unique<CLiChessHTTP>(settings, std::move(messages));
}
