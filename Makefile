# The two commands of the README: `make run` and `make test`.
BUILD ?= build
SANITIZE_BUILD ?= build-sanitize
TSAN_BUILD ?= build-tsan
CMAKE_FLAGS ?=

.PHONY: all setup build run test package test-sanitize test-tsan bench format sound-sheets picture-sheet clean

all: build

setup:
	@bash scripts/setup

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

build: setup $(BUILD)/build.ninja
	cmake --build $(BUILD)

run: build
	$(BUILD)/brevane/brevane

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy \
	  ctest --output-on-failure --timeout 600 -j 2

package: build
	cd $(BUILD) && cpack

test-sanitize: setup
	cmake -S . -B $(SANITIZE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug \
	  -DBREVANE_SANITIZE=address,undefined -DBREVANE_BUILD_BENCH=OFF \
	  -DBREVANE_GENERATE_SOUNDS=OFF $(CMAKE_FLAGS)
	cmake --build $(SANITIZE_BUILD)
	cd $(SANITIZE_BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy \
	  ctest --output-on-failure --timeout 900 -j 2

test-tsan: setup
	cmake -S . -B $(TSAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug \
	  -DBREVANE_SANITIZE=thread -DBREVANE_BUILD_UI=OFF -DBREVANE_BUILD_BENCH=OFF \
	  -DBREVANE_GENERATE_SOUNDS=OFF $(CMAKE_FLAGS)
	cmake --build $(TSAN_BUILD)
	cd $(TSAN_BUILD) && SDL_AUDIODRIVER=dummy ctest --output-on-failure --timeout 900 -R '^(engine|base)'

bench: build
	@for b in $(BUILD)/bench/bench_*; do echo "== $$b"; $$b; done

sound-sheets: build
	cmake --build $(BUILD) --target sound_sheets

picture-sheet: build
	cmake --build $(BUILD) --target picture_sheet

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(TSAN_BUILD)
