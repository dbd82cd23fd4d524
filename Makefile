# A thin front: what each command does stands in tools/ and in the CMake presets.

.PHONY: help run test test-tsan bench lint format packages

help:
	@echo "make run     build, start the simulated robot and the daemon, print where to look"
	@echo "make test    build with AddressSanitizer and UBSan and run every test"
	@echo "make test-tsan  the same with ThreadSanitizer"
	@echo "make bench   build optimised and print the benchmarks' ratios"
	@echo "make lint    check format, clang-tidy, shell scripts, file sizes, links and JSON"
	@echo "make format  format all sources"

packages:
	@tools/install-packages

run: packages
	@tools/run-demo

test: packages
	@tools/run-tests asan

test-tsan: packages
	@tools/run-tests tsan

bench: packages
	@tools/run-benchmarks

lint: packages
	@tools/lint

format: packages
	@tools/format
