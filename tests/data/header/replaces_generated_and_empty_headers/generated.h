#pragma once
older
