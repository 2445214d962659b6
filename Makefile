# Thin wrappers over the CMake presets; `make help` lists them.
#
# Every recipe first installs the distribution packages that are missing. Set PACKAGES=no to leave them alone.

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)
PRESET ?= release
BUILD = build/$(PRESET)

packages = $(if $(filter no,$(PACKAGES)),@true,scripts/install_packages.sh)
configure = cmake --preset $(PRESET) $(if $(SAMPLES),-DVELTRANE_SAMPLES_DIR=$(abspath $(SAMPLES)))
build = cmake --build --preset $(PRESET) --parallel $(JOBS)
everything = -DVELTRANE_BUILD_TESTS=ON -DVELTRANE_BUILD_BENCH=ON
library_and_tool = -DVELTRANE_BUILD_TESTS=OFF -DVELTRANE_BUILD_BENCH=OFF

.PHONY: help demo test bench install format sanitize fuzz clean
.DEFAULT_GOAL := help

help:
	@echo 'make demo       build the tool and convert a drawing into pictures, a mesh, a DXF file and a shape dump'
	@echo 'make test       build everything and run all tests     (SAMPLES=folder of real drawings)'
	@echo 'make sanitize   the same under the address and undefined-behaviour sanitizers'
	@echo 'make fuzz       feed the reader with damaged drawings  (SECONDS=60 or RUNS=, TARGET=, SAMPLES=)'
	@echo 'make bench      measure reading and writing            (SIZES="10 100", in MB)'
	@echo 'make install    install library and tool               (PREFIX=$(PREFIX), DESTDIR=)'
	@echo 'make format     format the sources'
	@echo 'make clean      remove build/'
	@echo 'Other settings: JOBS=$(JOBS), PRESET=$(PRESET) (debug, release, sanitize), PACKAGES=no (do not run apt-get)'

test:
	$(packages) build test
	$(configure) $(everything)
	$(build)
	ctest --preset $(PRESET) --parallel $(JOBS)

sanitize:
	$(MAKE) test PRESET=sanitize

# Inputs that reached something new are kept in build/fuzz/corpus; those that broke something lie in build/fuzz.
FUZZ = build/fuzz/fuzz/fuzz_$(or $(TARGET),read_drawing)
limit = $(if $(RUNS),-runs=$(RUNS),-max_total_time=$(or $(SECONDS),60))
fuzz:
	$(packages) build fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz --parallel $(JOBS)
	mkdir -p build/fuzz/corpus
	fuzz/make_seeds.py build/fuzz/seeds examples $(SAMPLES)
	$(FUZZ) $(limit) -max_len=6500 -timeout=20 -rss_limit_mb=1024 -dict=fuzz/dxf.dict -artifact_prefix=build/fuzz/ \
	    -print_final_stats=1 build/fuzz/corpus build/fuzz/seeds

demo:
	$(packages) build
	$(configure) $(library_and_tool)
	$(build) --target vdxf
	scripts/demo.sh $(BUILD)/src/vdxf build/demo

bench:
	$(packages) build bench
	$(configure) $(everything)
	$(build) --target benchmarks
	bench/whole_process.py --programs $(BUILD)/bench --work build/bench $(if $(SIZES),--sizes $(SIZES))

install:
	$(packages) build
	$(configure) $(library_and_tool)
	$(build)
	cmake --install $(BUILD) --prefix $(PREFIX)

format:
	$(packages) format
	find src tests bench fuzz examples -name '*.[ch]pp' | xargs --no-run-if-empty clang-format -i

clean:
	rm -rf build
