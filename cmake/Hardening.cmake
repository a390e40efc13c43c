# What makes a fault in a reader harder to use: the distribution's own flags, and those that its next release adds. All
# presets have them but the sanitizers', which do the same and more. lint.hardened looks for them in what was built.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

add_link_options(LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
if(NOT KESTRO_SANITIZE)
    add_compile_options(-fstack-protector-strong -Wformat -Werror=format-security
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
    # Landing pads for indirect jumps and a guard against jumps over the stack's guard page, where the processor or the
    # compiler has them.
    foreach(flag -fcf-protection -fstack-clash-protection)
        string(MAKE_C_IDENTIFIER "KESTRO_HAS${flag}" has)
        check_cxx_compiler_flag(${flag} ${has})
        if(${has})
            add_compile_options(${flag})
        endif()
    endforeach()
endif()
