# The two commands of the README. Both install what is missing first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps build run test bench sanitize format clean

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

bench: build
	bash scripts/bench-startup.sh $(BUILD)
	$(BUILD)/bench/bench_typing
	$(BUILD)/bench/bench_files

sanitize: deps
	cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTESSALINE_SANITIZE=ON
	cmake --build build-asan -j $(JOBS)
	cd build-asan && ASAN_OPTIONS=detect_leaks=0 ctest --output-on-failure -j $(JOBS) -E test_views
	# The browser engine frees some of its own objects with a mismatched delete; that check is
	# off for the one test that runs it, the others keep it.
	cd build-asan && ASAN_OPTIONS=detect_leaks=0:new_delete_type_mismatch=0 ctest --output-on-failure -R test_views

format:
	find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) build-asan
