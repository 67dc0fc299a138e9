# Code that speaks Wayland's protocols, from their descriptions.

find_package(PkgConfig REQUIRED)
pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET wayland-client)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)

# All the headers, for tools that read the code before it is built.
add_custom_target(wayland_protocols)

# Adds the client's code of `<protocol>.xml` in this folder to a target; the header is `<protocol>-client-protocol.h`.
function(wayland_protocols target)
  set(sources)
  foreach(protocol IN LISTS ARGN)
    set(description ${CMAKE_CURRENT_SOURCE_DIR}/${protocol}.xml)
    set(header ${CMAKE_CURRENT_BINARY_DIR}/${protocol}-client-protocol.h)
    set(code ${CMAKE_CURRENT_BINARY_DIR}/${protocol}-protocol.c)
    add_custom_command(
      OUTPUT ${header} ${code}
      COMMAND ${WAYLAND_SCANNER} client-header ${description} ${header}
      COMMAND ${WAYLAND_SCANNER} private-code ${description} ${code}
      DEPENDS ${description}
      VERBATIM)
    list(APPEND sources ${header} ${code})
  endforeach()
  set_source_files_properties(${sources} PROPERTIES SKIP_AUTOMOC ON SKIP_UNITY_BUILD_INCLUSION ON)
  target_sources(${target} PRIVATE ${sources})
  # Generated code need not please the linter.
  target_include_directories(${target} SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
  add_custom_target(${target}_protocols DEPENDS ${sources})
  add_dependencies(wayland_protocols ${target}_protocols)
endfunction()
