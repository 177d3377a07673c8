# Two entry points for a fresh machine:
#   make run   builds everything, then writes the bundled example table's CREATE script and the
#              ALTER script from its old description to its new one (and runs the library examples)
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
	@echo "-- qarvelt create examples/emp_old.json"
	@$(BUILD_DIR)/tools/qarvelt create examples/emp_old.json
	@echo "-- qarvelt diff examples/emp_old.json examples/emp_new.json"
	@$(BUILD_DIR)/tools/qarvelt diff examples/emp_old.json examples/emp_new.json
	@echo "-- qarvelt diff examples/shop/v1.json examples/shop/v2.json (a whole schema)"
	@$(BUILD_DIR)/tools/qarvelt diff examples/shop/v1.json examples/shop/v2.json
	@echo "-- the library used directly: examples/hand_built.cpp, examples/schema_change.cpp"
	@$(BUILD_DIR)/examples/qarvelt_example
	@$(BUILD_DIR)/examples/qarvelt_schema_change
	@if [ -d $(BUILD_DIR)/python/qarvelt ]; then \
	  echo "-- the Python module: examples/emp_diff.py"; \
	  PYTHONPATH=$(BUILD_DIR)/python /usr/bin/python3 examples/emp_diff.py; \
	fi

test: build
	ctest --test-dir $(BUILD_DIR) --output-on-failure -j $(JOBS)

clean:
	rm -rf $(BUILD_DIR)
