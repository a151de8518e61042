# The two commands of the README. Both install what is missing first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps build run test bench fuzz sanitize format clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

run: build
	cd $(BUILD) && ./tessaline

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The round-trip property tests at length: FUZZ_CASES random files, and random edits of them in
# the real Source pane, from FUZZ_SEED (the same seed repeats the same cases).
FUZZ_CASES ?= 300000
ifndef FUZZ_SEED
FUZZ_SEED := $(shell date +%s)
endif
fuzz: build
	@echo "fuzz seed $(FUZZ_SEED), $(FUZZ_CASES) cases"
	cd $(BUILD)/tests && TSL_FUZZ_CASES=$(FUZZ_CASES) TSL_FUZZ_SEED=$(FUZZ_SEED) \
		./test_text_file randomFilesRoundTrip
	cd $(BUILD)/tests && TSL_FUZZ_CASES=$(FUZZ_CASES) TSL_FUZZ_SEED=$(FUZZ_SEED) \
		QT_QPA_PLATFORM=offscreen ./test_source_pane_exact randomEditsKeepTheExactText
	cd $(BUILD)/tests && TSL_FUZZ_CASES=$(FUZZ_CASES) TSL_FUZZ_SEED=$(FUZZ_SEED) \
		QT_QPA_PLATFORM=offscreen ./test_text_rows rowsFollowRandomEdits

bench: build
	bash scripts/bench-startup.sh $(BUILD)
	$(BUILD)/bench/bench_typing
	$(BUILD)/bench/bench_scrolling
	$(BUILD)/bench/bench_files
	$(BUILD)/bench/bench_search
	bash scripts/bench-memory.sh $(BUILD)

# The tests that start the browser engine.
ENGINE_TESTS = test_views|test_element_windows

sanitize: deps
	cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTESSALINE_SANITIZE=ON
	cmake --build build-asan -j $(JOBS)
	cd build-asan && ASAN_OPTIONS=detect_leaks=0 ctest --output-on-failure -j $(JOBS) -E '$(ENGINE_TESTS)'
	# The browser engine frees some of its own objects with a mismatched delete; that check is
	# off for the tests that run it, the others keep it.
	cd build-asan && ASAN_OPTIONS=detect_leaks=0:new_delete_type_mismatch=0 ctest --output-on-failure -R '$(ENGINE_TESTS)'

format:
	find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) build-asan
