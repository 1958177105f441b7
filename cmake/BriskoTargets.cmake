# Settings that every target of this project shares.

# Language level, warnings, visibility, sanitizers and coverage for one target.
function(brisko_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
  if(BRISKO_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(BRISKO_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${BRISKO_SANITIZE} -fno-sanitize-recover=undefined
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${BRISKO_SANITIZE})
  endif()
  if(BRISKO_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()

# Makes the existing library target a versioned one: Brisko::<export_name> here and for those who find the package.
function(brisko_add_library target export_name)
  brisko_target_defaults(${target})
  # Nobody puts functions of their own in the place of the library's, so that it may inline these and call them directly.
  target_compile_options(${target} PRIVATE -fno-semantic-interposition -fno-plt)
  add_library(Brisko::${export_name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${export_name} VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "\$ORIGIN")
endfunction()
