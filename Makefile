# The two everyday commands: `make run` and `make test`.
PRESET ?= debug
BUILD   = build/$(PRESET)

.PHONY: deps configure build run test bench clean format

deps:
	@scripts/install-deps.sh

configure: deps
	@[ -f $(BUILD)/build.ninja ] || cmake --preset $(PRESET)

build: configure
	cmake --build --preset $(PRESET)

run: build
	cd $(BUILD) && ./ClothesSell

test: build
	ctest --preset $(PRESET)

bench: PRESET = release
bench: configure
	cmake --build --preset $(PRESET) --target clothes_bench mkvolume
	$(BUILD)/clothes_bench

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf build
