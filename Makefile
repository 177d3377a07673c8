# Two entry points for a fresh machine:
#   make run   builds the library and runs the bundled example
#   make test  builds everything and runs the whole test suite
# Both first install missing Debian packages (scripts/install-deps.sh).
# Extra CMake settings go in QARVELT_CMAKE_ARGS (for example -DQARVELT_WERROR=ON).
BUILD_DIR ?= build
JOBS ?= 2
QARVELT_CMAKE_ARGS ?=

.PHONY: all deps configure build run test clean

all: build

deps:
	@scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) $(QARVELT_CMAKE_ARGS)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	$(BUILD_DIR)/examples/qarvelt_example
	$(BUILD_DIR)/examples/qarvelt_schema_change

test: build
	ctest --test-dir $(BUILD_DIR) --output-on-failure -j $(JOBS)

clean:
	rm -rf $(BUILD_DIR)
