/* What pack-skin made, found through the include path. */

    .section .rodata.pedlSkin, "a", %progbits
    .balign 16
    .globl pedlSkin
    .hidden pedlSkin
    .type pedlSkin, %object
pedlSkin:
    .incbin "skin.packed"
    .size pedlSkin, . - pedlSkin
    .globl pedlSkinEnd
    .hidden pedlSkinEnd
pedlSkinEnd:
    .byte 0

    .section .note.GNU-stack, "", %progbits
