# One word for each thing that people do with the tree. Settings: BUILD (folder), PREFIX (make install).

BUILD  ?= build
PREFIX ?= /usr/local

.DEFAULT_GOAL := help
.PHONY: help setup build run demo test screenshots bench lint format sanitize install clean

help:            ## Show this list
	@awk -F':.*## ' '/^[a-z-]+:.*## /{printf "  make %-12s %s\n", $$1, $$2}' Makefile

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

bench: setup     ## Measure runs, beside a loop by hand and database clients, and the reading of schemas
	@scripts/setup test
	@scripts/build $(BUILD) vellumark-cli vellumark_bench
	$(BUILD)/vellumark_bench
	scripts/bench-direct $(BUILD)
	scripts/bench-read $(BUILD)

lint: build      ## Check formatting, include cycles and file sizes
	@scripts/lint

format:          ## Format all sources in place
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

sanitize: setup  ## Build and test with the address and undefined-behaviour sanitizers
	cmake --preset sanitize
	cmake --build --preset sanitize
	ctest --preset sanitize

install: build   ## Install both programs below PREFIX (default /usr/local)
	cmake --install $(BUILD) --prefix $(PREFIX)

clean:           ## Remove what was built
	rm -rf $(BUILD) build-sanitize
