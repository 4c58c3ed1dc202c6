// Carries the headers that tests/CMakeLists.txt has precompiled, and nothing else.
