#pragma once
// What a problem search tells the user, and the reports it writes: "SearchProblems.log" with
// the criteria and the hits of every search, and "SearchHeuristics.log" with the heuristics
// of every problem a search by heuristics matched. Each search writes its reports afresh.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/ProblemSearch.h"

inline constexpr const char* kSearchProblemsLogName = "SearchProblems.log";
inline constexpr const char* kSearchHeuristicsLogName = "SearchHeuristics.log";

// One line per criterion given, in field order ("Search by stipulation (num.of moves) : from
// #3 to #5").
std::vector<std::string> CriteriaLines(const TSearchQuery& query);
// "Found problems that match criteria: 3 (use F3/Shift+F3 ...)", the similar-positions texts,
// or "No problem found that matches search criteria".
std::vector<std::string> ResultLines(const TSearchResult& result);
// One line for a problem: id, stipulation, piece count, description (as the listing of a
// file shows them), and the similarity of a similar position.
std::string HitLine(const TSearchHit& hit);
// The problem's heuristics as the file gives them: "KingOnEdge(2) NoCastling(OFF)".
std::string HeuristicsText(const TProblem& problem);

// Writes the reports of a search into folder; returns the error text of the first that could
// not be written, nothing when both were.
std::optional<std::string> WriteSearchReports(const std::filesystem::path& folder,
                                              const TSearchQuery& query,
                                              const TSearchResult& result);
