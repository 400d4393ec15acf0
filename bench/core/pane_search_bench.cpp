// What the search dialog costs in a pane of a million lines: a search for what is not there, so all
// of it is read.
#include <benchmark/benchmark.h>

#include <memory>
#include <string_view>

#include "display/pane_search.h"
#include "shell/assembly.h"
#include "support/pane_samples.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

constexpr int kLines = 1'000'000;

struct SearchedPane {
  SearchedPane() {
    Assemble(client);
    AppendMessages(client.tab(0).Rich, kLines);
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

void Search(benchmark::State& state, std::string_view wanted, SearchForm form,
            SearchDirection direction) {
  static const auto searched = std::make_unique<SearchedPane>();
  Client& client = searched->client;
  form.txt_to_search = wanted;
  for (auto _ : state) {
    client.app.search_form = form;
    FindNext(client, direction);
  }
  if (client.app.search_form.LastFound != 0) state.SkipWithError("it is there");
  searched->platform.desktop.boxes.clear();
  state.SetBytesProcessed(state.iterations() * client.tab(0).Rich.Length());
}

constexpr auto kDown = SearchDirection::kDown;
constexpr auto kUp = SearchDirection::kUp;
const SearchForm kPlain;
const SearchForm kCase{.case_sensitive = true};
const SearchForm kWord{.compl_word = true};

BENCHMARK_CAPTURE(Search, twelve_letters, "another text", kPlain, kDown);
BENCHMARK_CAPTURE(Search, three_letters, "xyz", kPlain, kDown);
BENCHMARK_CAPTURE(Search, two_letters, "xz", kPlain, kDown);
BENCHMARK_CAPTURE(Search, one_letter, "$", kPlain, kDown);
BENCHMARK_CAPTURE(Search, one_letter_up, "$", kPlain, kUp);
BENCHMARK_CAPTURE(Search, two_letters_up, "xz", kPlain, kUp);
BENCHMARK_CAPTURE(Search, two_letters_with_case, "xz", kCase, kDown);
BENCHMARK_CAPTURE(Search, one_letter_with_case, "$", kCase, kDown);
BENCHMARK_CAPTURE(Search, whole_word, "xyz", kWord, kDown);
BENCHMARK_CAPTURE(Search, whole_word_up, "xyz", kWord, kUp);
BENCHMARK_CAPTURE(Search, blanks, "    ", kPlain, kDown);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
