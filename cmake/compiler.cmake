# Compiler settings of every target of the project.

if(MSVC)
    add_compile_options(/W4 /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> -Wnon-virtual-dtor
                        -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough)
endif()
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                        QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# A wrong index in a container of the library ends the program instead of reading on, in every build.
add_compile_definitions(_GLIBCXX_ASSERTIONS)

if(CALVORIS_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
elseif(CMAKE_BUILD_TYPE STREQUAL Release AND NOT WIN32)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    # The bytes of the programs don't depend on where they are built.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
    add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
if(CALVORIS_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()
if(CALVORIS_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
