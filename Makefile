# One word for each thing that people do with the tree. Settings: BUILD (folder), PREFIX (make install), SECONDS and SEED
# (make fuzz), COUNT, SEED, KINDS and DETAILS (make faults, docs/reliability.md).

BUILD  ?= build
PREFIX ?= /usr/local
SECONDS ?= 20
COUNT  ?= 200

.DEFAULT_GOAL := help
.PHONY: help setup build run demo test screenshots help-pictures bench faults lint format sanitize coverage fuzz install package clean

help:            ## Show this list
	@awk -F':.*## ' '/^[a-z-]+:.*## /{printf "  make %-14s %s\n", $$1, $$2}' Makefile

setup:           ## Install the Debian packages that are missing
	@scripts/setup

build: setup     ## Build both programs into build/
	@scripts/build $(BUILD)

run: setup       ## Open the desktop program
	@scripts/build $(BUILD) vellumark
	$(BUILD)/vellumark

demo: setup      ## Do the main job on a small embedded database
	@scripts/build $(BUILD) vellumark-cli
	@scripts/demo $(BUILD)

test: build      ## Run all tests, with private database servers on loopback
	@scripts/setup test
	ctest --test-dir $(BUILD) --output-on-failure -j2

screenshots: demo ## Make a picture of every screen into build/screenshots/
	@scripts/build $(BUILD) vellumark_screenshots
	@scripts/screenshots $(BUILD)

help-pictures: screenshots ## Take the guide's pictures and samples from this build
	@scripts/help-pictures $(BUILD)
	@scripts/help-samples $(BUILD)

bench: setup     ## Measure runs, beside a loop by hand and database clients, and the reading of schemas
	@scripts/setup test
	@scripts/build $(BUILD) vellumark-cli vellumark_bench
	$(BUILD)/vellumark_bench
	scripts/bench-direct $(BUILD)
	scripts/bench-read $(BUILD)

faults: setup    ## Kill, starve and mislead the program and look at what it leaves
	@scripts/setup test
	@scripts/build $(BUILD) vellumark-cli vellumark_failing_calls
	@tests/faults/faults.py --count $(COUNT) $(if $(SEED),--seed $(SEED)) $(if $(KINDS),--kinds $(KINDS)) \
		$(if $(DETAILS),--details) $(BUILD)/vellumark-cli $(BUILD)/tests/libvellumark_failing_calls.so

lint: build      ## Check formatting, include cycles, file sizes, the guide and what is installed
	@scripts/setup lint
	@scripts/lint $(BUILD)

format:          ## Format all sources in place
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

sanitize: setup  ## Build and test with the address and undefined-behaviour sanitizers
	cmake --preset sanitize
	cmake --build --preset sanitize
	ctest --preset sanitize -j2

coverage: setup  ## Count the lines below the screens that the tests run; fails under 85 %
	@scripts/setup coverage
	cmake --preset coverage
	cmake --build --preset coverage
	find build-coverage -name '*.gcda' -delete
	ctest --test-dir build-coverage --output-on-failure -j2
	gcovr --root . --filter src/ --exclude '.*/screens/' --print-summary --fail-under-line 85 \
		--txt build-coverage/coverage.txt build-coverage

fuzz:            ## Try each reader of foreign input with damaged input for SECONDS (default 20)
	@scripts/setup fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz
	@scripts/fuzz $(if $(SEED),-s $(SEED)) build-fuzz $(SECONDS)

install: build   ## Install both programs and their manuals below PREFIX (default /usr/local)
	cmake --install $(BUILD) --prefix $(PREFIX)

package: setup   ## Make a Debian package in BUILD
	@scripts/setup package
	@scripts/build $(BUILD) vellumark vellumark-cli vellumark_packaging
	cd $(BUILD) && cpack

clean:           ## Remove what was built
	rm -rf $(BUILD) build-sanitize build-coverage build-fuzz
