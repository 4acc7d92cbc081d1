// A plugin for qemu-arm that tells on standard error how many instructions the program ran. Debian
// ships no header of the plugin interface; what is used of its version 1 is declared here.

#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#define EXPORT __attribute__((visibility("default")))

typedef uint64_t qemu_plugin_id_t;
struct qemu_plugin_tb;

void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*callback)(qemu_plugin_id_t,
                                                            struct qemu_plugin_tb*));
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb* block, int operation,
                                              void* counter, uint64_t amount);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id, void (*callback)(qemu_plugin_id_t, void*),
                                    void* data);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb* block);

EXPORT int qemu_plugin_version = 1;

static uint64_t instructions;

static void CountBlock(qemu_plugin_id_t id, struct qemu_plugin_tb* block) {
  (void)id;
  enum { kAdd = 0 };
  qemu_plugin_register_vcpu_tb_exec_inline(block, kAdd, &instructions,
                                           qemu_plugin_tb_n_insns(block));
}

static void Report(qemu_plugin_id_t id, void* data) {
  (void)id;
  (void)data;
  fprintf(stderr, "instructions: %" PRIu64 "\n", instructions);
}

EXPORT int qemu_plugin_install(qemu_plugin_id_t id, const void* info, int argc, char** argv) {
  (void)info;
  (void)argc;
  (void)argv;
  qemu_plugin_register_vcpu_tb_trans_cb(id, CountBlock);
  qemu_plugin_register_atexit_cb(id, Report, NULL);
  return 0;
}
