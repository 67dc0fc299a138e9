# Compiler and linker settings that every target of the project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(MIREVAL_LINK_TIME_OPTIMISATION "Optimise across files when linking" OFF)
set(MIREVAL_SANITIZERS "" CACHE STRING "Sanitizers to build with, for example address,undefined")

# What was compiled before is not compiled again; for the tests, also when it was in another folder. The cache then calls
# the compiler with relative paths, which would show in what users run.
find_program(CCACHE ccache)
if(CCACHE AND MIREVAL_LINK_TIME_OPTIMISATION)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
elseif(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=true ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Werror)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)

if(MIREVAL_SANITIZERS)
  add_compile_options(-fsanitize=${MIREVAL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${MIREVAL_SANITIZERS})
else()
  add_compile_options(-fstack-protector-strong)
  # Control-flow protection: the one of x86-64, or that of arm64.
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection MIREVAL_HAS_CF_PROTECTION)
  check_cxx_compiler_flag(-mbranch-protection=standard MIREVAL_HAS_BRANCH_PROTECTION)
  if(MIREVAL_HAS_CF_PROTECTION)
    add_compile_options(-fcf-protection)
  elseif(MIREVAL_HAS_BRANCH_PROTECTION)
    add_compile_options(-mbranch-protection=standard)
  endif()
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
  if(CMAKE_BUILD_TYPE MATCHES "Rel")
    add_compile_definitions(_FORTIFY_SOURCE=2)
    # The output must not depend on the folder of the build.
    set(folders -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
    add_compile_options(${folders})
    add_link_options(${folders})
  endif()
endif()

# Makes a program or module export the symbols in the linker's version script, and no others. Hidden visibility is not
# enough: the standard library's headers make their type information visible.
function(mireval_export_only target script)
  target_link_options(${target} PRIVATE -Wl,--version-script=${script})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()

set_property(GLOBAL PROPERTY RULE_LAUNCH_CUSTOM "\"${CMAKE_CURRENT_LIST_DIR}/reproducibly\"")

include(CheckPIESupported)
check_pie_supported()

if(MIREVAL_LINK_TIME_OPTIMISATION)
  include(CheckIPOSupported)
  check_ipo_supported()
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
  # When the compiler optimises a whole position-independent executable, it copies Qt's variables into it. Qt's
  # libraries go on using their own copies, and crash.
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-mno-direct-extern-access MIREVAL_HAS_NO_DIRECT_EXTERN_ACCESS)
  if(MIREVAL_HAS_NO_DIRECT_EXTERN_ACCESS)
    add_compile_options(-mno-direct-extern-access)
    add_link_options(-mno-direct-extern-access)
  endif()
  # Whole-program optimisation warns about sizes in Qt's headers that cannot occur.
  add_link_options(-Wno-alloc-size-larger-than)
endif()
